#include "qt/edits/QtEditField.h"

#include "qt/detail/EventGuard.h"
#include "qt/detail/WindowWatch.h"
#include "qt/edits/detail/EditFieldAccessible.h"
#include "qt/edits/detail/Keys.h"
#include "qt/QtText.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionFrame>

#include <algorithm>

namespace CommonUI
{

CQtEditField::CQtEditField(QWidget* parent)
    : QLineEdit(parent)
    , m_window(std::make_unique<CWindowWatch>())
{
    QAccessible::installFactory(&CEditFieldAccessible::Make);
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (GetControl())
            GetControl()->OnTextEdited();
    });
}

CQtEditField::~CQtEditField() = default;

CStr CQtEditField::GetText() const
{
    return FromQString(text());
}

void CQtEditField::SetText(const CStr& text)
{
    setText(ToQString(text));
    // The first digits of a long number matter most.
    setCursorPosition(0);
    if (fontMetrics().horizontalAdvance(this->text()) > fontMetrics().horizontalAdvance(m_longest)) {
        m_longest = this->text();
        updateGeometry();
    }
    AnnounceNumber();
}

void CQtEditField::SetReadOnly(bool readOnly)
{
    if (isReadOnly() == readOnly)
        return;
    setReadOnly(readOnly);
    Q_EMIT WritableChanged(!readOnly);
    QAccessible::State changed;
    changed.readOnly = true;
    changed.editable = true;
    QAccessibleStateChangeEvent event(this, changed);
    Announce(event);
}

void CQtEditField::EnterText(const QString& text)
{
    CExEdit* const control = GetControl();
    setText(text);
    if (!control)
        return;
    control->OnTextEdited();
    Guarded([control] { control->Validate(); });
}

QSize CQtEditField::WithRoom(QSize size) const
{
    // The least size has room for the frame and the widest character.
    const int frame = QLineEdit::minimumSizeHint().width() - fontMetrics().maxWidth();
    constexpr int c_margins = 6; // of the text in the frame, and the caret
    const int width = frame + fontMetrics().horizontalAdvance(m_longest) + c_margins;
    return size.expandedTo({std::min(width, 2 * QLineEdit::sizeHint().width()), 0});
}

void CQtEditField::AnnounceNumber()
{
    const auto number = GetControl() ? GetControl()->GetNumber() : std::nullopt;
    if (!number || number->value == m_announced)
        return;
    m_announced = number->value;
    QAccessibleValueChangeEvent event(this, number->value);
    Announce(event);
}

void CQtEditField::Announce(QAccessibleEvent& event)
{
    QAccessible::updateAccessibility(&event);
}

bool CQtEditField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && ClaimsKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    // Before Qt looks for a tab stop or the dialog for its default button.
    if (event->type() == QEvent::KeyPress && OfferKey(static_cast<QKeyEvent&>(*event)))
        return true;
    return QLineEdit::event(event);
}

// @return whether the control has dealt with it; the widget may be gone then
bool CQtEditField::OfferKey(const QKeyEvent& event)
{
    CExEdit* const control = GetControl();
    if (!control)
        return false;
    // A callback that throws has used the key: Enter must not close the dialog then.
    bool used = true;
    Guarded([control, &used, key = ToKey(event)] { used = control->OnKey(key); });
    return used;
}

// Whether the field gets the key although it is a shortcut of the window.
bool CQtEditField::ClaimsKey(const QKeyEvent& event)
{
    if (!GetControl() || !GetControl()->ClaimsAllKeys(false))
        return false;
    const EKey key = ToKey(event).key;
    return key == EKey::Enter || key == EKey::Escape || key == EKey::Up || key == EKey::Down;
}

void CQtEditField::initStyleOption(QStyleOptionFrame* option) const
{
    QLineEdit::initStyleOption(option);
    if (isReadOnly())
        option->palette.setBrush(QPalette::Base, option->palette.window());
}

void CQtEditField::wheelEvent(QWheelEvent* event)
{
    CExEdit* const control = GetControl();
    const int delta = event->angleDelta().y();
    const bool withControl = event->modifiers().testFlag(Qt::ControlModifier);
    bool used = control && delta != 0 && isEnabled();
    if (used)
        Guarded([=, &used] { used = control->OnMouseWheel(delta, withControl); });
    event->setAccepted(used);
}

void CQtEditField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    m_window->Remember(*this);
}

void CQtEditField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // From the context menu the user comes back.
    const bool stays = event->reason() == Qt::PopupFocusReason;
    CExEdit* const control = GetControl();
    if (control && !stays && m_window->IsWhole(*this))
        Guarded([control] { control->OnFocusLost(); });
}

void CQtEditField::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!actions().isEmpty())
        menu->addSeparator();
    menu->addActions(actions());
    menu->popup(event->globalPos());
}

} // namespace CommonUI
