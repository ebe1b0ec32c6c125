#include "qt/grid/detail/GridKeys.h"

#include <QKeyEvent>

namespace CommonUI
{

namespace
{

constexpr struct {
    int key;
    EGridKey gridKey;
} c_keys[] = {
    {Qt::Key_Left, EGridKey::Left},     {Qt::Key_Right, EGridKey::Right},
    {Qt::Key_Up, EGridKey::Up},         {Qt::Key_Down, EGridKey::Down},
    {Qt::Key_Home, EGridKey::Home},     {Qt::Key_End, EGridKey::End},
    {Qt::Key_PageUp, EGridKey::PageUp}, {Qt::Key_PageDown, EGridKey::PageDown},
    {Qt::Key_Space, EGridKey::Space},   {Qt::Key_Return, EGridKey::Enter},
    {Qt::Key_Enter, EGridKey::Enter},   {Qt::Key_F2, EGridKey::F2},
    {Qt::Key_Escape, EGridKey::Escape},
};

} // namespace

SGridModifiers ToGridModifiers(Qt::KeyboardModifiers modifiers)
{
    return {.shift = modifiers.testFlag(Qt::ShiftModifier),
            .control = modifiers.testFlag(Qt::ControlModifier)};
}

std::optional<SGridKey> ToGridKey(const QKeyEvent& event)
{
    const SGridModifiers modifiers = ToGridModifiers(event.modifiers());
    if ((event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0)
        return std::nullopt;
    // By what the desktop calls copying, such as Ctrl+Insert.
    if (event.matches(QKeySequence::Copy))
        return SGridKey{EGridKey::C, {.control = true}};
    if (event.matches(QKeySequence::SelectAll))
        return SGridKey{EGridKey::A, {.control = true}};
    for (const auto& row : c_keys)
        if (row.key == event.key())
            return SGridKey{row.gridKey, modifiers};
    return std::nullopt;
}

QString TypedText(const QKeyEvent& event)
{
    // Ctrl and Alt together are the third level of some keyboards.
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    const QString text = event.text();
    const bool types = control == alt && !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
    return types ? text : QString();
}

} // namespace CommonUI
