#pragma once

#include "controls/color/Paint.h"

#include <QIcon>
#include <QSize>

class QWidget;

namespace CommonUI
{

/// A picture of a colour with an edge, on a chequered ground where that shows through.
/// @param widget where it is shown; it gives the edge its colour and the picture its resolution
QIcon MakeSwatch(const SPaint& paint, const QSize& size, const QWidget& widget);

} // namespace CommonUI
