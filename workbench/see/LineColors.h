#pragma once

#include <QColor>
#include <QPalette>

namespace Workbench
{

/// A colour by which one of several lines is told from the others. There are eight, then they come again.
/// @param number from 0
QColor GetLineColor(int number, bool isDark);

/// Whether a widget has light texts on a dark ground.
inline bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

} // namespace Workbench
