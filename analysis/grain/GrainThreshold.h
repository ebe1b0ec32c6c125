#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

namespace CommonUI::Analysis
{

/// How the height of the threshold plane is found.
enum class EGrainThreshold {
    Absolute = 0,   ///< a height
    Relative = 1,   ///< a share of the way from the lowest point to the highest
    Percentile = 2, ///< the height below which a share of the points lies
    Otsu = 3        ///< the height that parts the points into the two most compact classes (Otsu 1979)
};

/// The height of the threshold plane, in m.
///
/// - Relative: lowest + value/100 (highest - lowest)
/// - Percentile: as ComputeFractile has it
/// - Otsu: in the middle between the two neighbouring heights that part the points so that the variance
///   between the two classes, n₁ n₂ (mean₁ - mean₂)², is greatest; where that is so at several places,
///   between the first and the last of them. No histogram is made, so there are no classes to choose. Of
///   points that all have one height it is that.
///
/// Missing points count in none of these; without any other the result is NaN, but for Absolute.
/// @param value Absolute: the height in m; Relative and Percentile: percent, 0 to 100, else the result is
///     NaN; Otsu: of no account
COMMONUIANALYSIS_API double FindThreshold(const SSurface& surface, EGrainThreshold threshold, double value);

} // namespace CommonUI::Analysis
