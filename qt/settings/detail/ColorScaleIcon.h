#pragma once

#include "common/Color.h"

#include <QIcon>

#include <vector>

namespace CommonUI
{

/// The colours of a scale from left to right, the lowest first, at any size.
QIcon MakeColorScaleIcon(const std::vector<SColor>& colors);

} // namespace CommonUI
