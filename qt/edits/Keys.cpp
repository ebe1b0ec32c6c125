#include "qt/edits/detail/Keys.h"

#include <QKeyEvent>

namespace CommonUI
{

namespace
{

EKey ToNamedKey(int key)
{
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return EKey::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return EKey::Enter;
    case Qt::Key_Escape:
        return EKey::Escape;
    case Qt::Key_Up:
        return EKey::Up;
    case Qt::Key_Down:
        return EKey::Down;
    case Qt::Key_Left:
        return EKey::Left;
    case Qt::Key_Right:
        return EKey::Right;
    case Qt::Key_Home:
        return EKey::Home;
    case Qt::Key_End:
        return EKey::End;
    case Qt::Key_Backspace:
        return EKey::Backspace;
    case Qt::Key_Delete:
        return EKey::Delete;
    default:
        return EKey::Other;
    }
}

} // namespace

SKey ToKey(const QKeyEvent& event)
{
    SKey key{.key = ToNamedKey(event.key())};
    const QString text = event.text();
    if (key.key == EKey::Other && !text.isEmpty() && text.front().isPrint()) {
        key.key = EKey::Character;
        key.character = text.front().unicode();
    }
    key.shift = event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
    key.control = event.modifiers().testFlag(Qt::ControlModifier);
    key.alt = event.modifiers().testFlag(Qt::AltModifier);
    return key;
}

} // namespace CommonUI
