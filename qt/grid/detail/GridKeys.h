#pragma once

#include "output/grid/GridSelection.h"

#include <Qt>

#include <optional>

class QKeyEvent;
class QString;

namespace CommonUI
{

SGridModifiers ToGridModifiers(Qt::KeyboardModifiers modifiers);

/// The key as grids know it; nothing for one that they have no use for.
std::optional<SGridKey> ToGridKey(const QKeyEvent& event);

/// The text that a key types; empty for other keys and for shortcuts.
QString TypedText(const QKeyEvent& event);

} // namespace CommonUI
