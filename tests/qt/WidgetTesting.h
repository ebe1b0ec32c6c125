#pragma once

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

#include <functional>
#include <string>
#include <utility>

namespace CommonUI
{

using FAct = std::function<void()>;

/// Shows a window and waits until the keyboard is its own. It asks again while it is not: a window that was
/// shown before may get the keyboard later. (A window also counts as active when one that it belongs to is.)
inline void Activate(QWidget& window)
{
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        if (QApplication::activeWindow() != &window)
            window.activateWindow();
        return QApplication::activeWindow() == &window;
    }));
}

/// Types a script wherever the focus is: texts, and keys as Qt writes them, such as "7.5 Tab Ctrl+Up Esc".
inline void Type(const char* script)
{
    for (const QString& word : QString::fromUtf8(script).split(u' ')) {
        const QKeySequence keys(word);
        if (word.size() > 1 && keys.toString() == word) {
            QTest::keyClick(QApplication::focusWidget(), keys[0].key(), keys[0].keyboardModifiers());
            continue;
        }
        for (const QChar character : word)
            QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
    }
}

/// @return whether the widget used the event
inline bool Send(QWidget& to, QEvent&& event)
{
    QApplication::sendEvent(&to, &event);
    return event.isAccepted();
}

/// Turns the wheel over the middle of a widget. @return whether it used the turn
inline bool Turn(QWidget& widget, int delta, Qt::KeyboardModifiers modifiers = {})
{
    const QPointF middle = QRectF(widget.rect()).center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, delta}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    // As from the window system: Qt offers only such turns to the widgets around.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
    return event.isAccepted();
}

inline QAccessibleInterface& Reader(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

/// What screen readers say: the name and the states, such as "Items: (focused editable)".
inline std::string Speak(QAccessibleInterface& spoken)
{
    const QAccessible::State state = spoken.state();
    const std::pair<bool, const char*> states[] = {
        {state.focused, "focused"},   {state.selected, "selected"}, {state.editable, "editable"},
        {state.readOnly, "readOnly"}, {state.expanded, "expanded"}, {state.disabled, "disabled"},
    };
    std::string given;
    for (const auto& [is, name] : states)
        if (is)
            given += (given.empty() ? " (" : " ") + std::string(name);
    return spoken.text(QAccessible::Name).toStdString() + given + (given.empty() ? "" : ")");
}

/// Does something with the dialog that a call is about to show, as soon as it is there.
template<class TDialog>
void WhenShown(const std::function<void(TDialog&)>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* const dialog = qobject_cast<TDialog*>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible())
            act(*dialog);
        else
            WhenShown<TDialog>(act);
    });
}

} // namespace CommonUI
