#include "qt/grid/detail/GridEditor.h"

#include "qt/grid/detail/GridLineEditor.h"
#include "qt/grid/detail/GridListEditor.h"
#include "qt/grid/detail/GridRects.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>

#include <utility>

namespace CommonUI
{

CGridEditor* CGridEditor::Make(const SGridEdit& edit, QWidget& parent, FDone done)
{
    if (edit.kind == SGridEdit::EKind::List)
        return new CGridListEditor(edit, parent, std::move(done));
    return new CGridLineEditor(edit, parent, std::move(done));
}

CGridEditor::CGridEditor(FDone done)
    : m_done(std::move(done))
{
}

CGridEditor::~CGridEditor() = default;

void CGridEditor::Watch()
{
    setParent(&GetWidget());
    GetWidget().installEventFilter(this);
}

void CGridEditor::Show(const SRect& rect) const
{
    Place(rect);
    GetWidget().show();
    GetWidget().setFocus(Qt::OtherFocusReason);
}

void CGridEditor::Place(const SRect& rect) const
{
    // Within the frame of the focus.
    GetWidget().setGeometry(ToQRect(rect.Shrunk(2, 2)));
}

void CGridEditor::Close()
{
    Disarm();
    GetWidget().hide();
    GetWidget().deleteLater();
}

void CGridEditor::Finish(EGridEditEnd end)
{
    if (const FDone done = std::exchange(m_done, nullptr))
        done(end);
}

bool CGridEditor::OnFocus(const QEvent& event)
{
    if (event.type() == QEvent::FocusIn) {
        m_window.Remember(GetWidget());
        return false;
    }
    // From a context menu the user comes back.
    const bool stays = static_cast<const QFocusEvent&>(event).reason() == Qt::PopupFocusReason;
    if (stays || !m_window.IsWhole(GetWidget()))
        return false;
    // Qt goes on with a widget that it is about to give the focus, so a callback must not destroy the grid
    // yet.
    if (GetWidget().parentWidget()->focusProxy() == QApplication::focusWidget()) {
        QMetaObject::invokeMethod(
            this, [this] { Finish(EGridEditEnd::Taken); }, Qt::QueuedConnection);
        return false;
    }
    const QPointer<CGridEditor> self(this);
    Finish(EGridEditEnd::Taken);
    // A widget that has been destroyed gets no more events.
    return !self;
}

bool CGridEditor::OnKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Finish(EGridEditEnd::Taken);
        return true;
    case Qt::Key_Escape:
        Finish(EGridEditEnd::Cancelled);
        return true;
    case Qt::Key_Tab:
        Finish(EGridEditEnd::Next);
        return true;
    case Qt::Key_Backtab:
        Finish(EGridEditEnd::Previous);
        return true;
    default:
        return false;
    }
}

bool CGridEditor::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        return OnFocus(*event);
    case QEvent::KeyPress:
        return OnKey(static_cast<QKeyEvent&>(*event));
    case QEvent::ShortcutOverride:
        // What is typed here is no shortcut of the window.
        event->accept();
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace CommonUI
