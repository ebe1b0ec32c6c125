#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

namespace CommonUI::Analysis
{

/// What Level subtracts.
enum class ELevelling {
    None,
    Mean, ///< the mean height
    Plane ///< the least-squares plane z = a + b x + c y
};

/// Levels a surface in place. Missing points take no part and stay missing; without a valid point nothing
/// happens. Where the valid points do not span a plane, as in a single line, the slope along them is all
/// that is removed. What is left of an exact plane is zero, not the noise of rounding.
COMMONUIANALYSIS_API void Level(SSurface& surface, ELevelling levelling);

} // namespace CommonUI::Analysis
