#pragma once

#include "../../export/Export.h"

#include <span>

namespace CommonUI::Analysis
{

/// The height of the background: the lowest significant peak of the height distribution.
///
/// The heights are counted in 4 n^(1/3) classes of equal width, 16 to 512, from the fractile 0.1 % to 99.9 %;
/// those beyond count in the first or last class. The counts are smoothed by a Gaussian of 1.5 classes
/// standard deviation. Significant is a peak of at least a tenth of the highest one after which the count
/// falls below three quarters of it. The result is the median of the heights in the classes around it that
/// hold at least half as much.
/// @param heights in any order, missing points NaN
/// @return NaN without a valid height
COMMONUIANALYSIS_API double FindBackground(std::span<const double> heights);

} // namespace CommonUI::Analysis
