#pragma once

#include "../../export/Export.h"
#include "../surface/Value.h"

#include <span>

namespace CommonUI::Analysis
{

/// What the elements of a profile, each a peak with the valley beside it, come to.
struct SProfileElements {
    double spacing = c_undefined; ///< mean width of an element, in point spacings
    double height = c_undefined;  ///< mean of highest minus lowest point of an element, m
};

/// Divides a profile at its mean line into elements (ISO 4287:1997, 3.2.7). A portion that does not rise or
/// fall beyond a band about the mean line, 5 % of the total height to either side, is no peak or valley of
/// its own, nor is one that is narrower than the least width. Elements start at the first crossing of the
/// mean line that two other portions have in common and end at the next in the same direction. All NaN
/// without a whole one.
/// @param profile heights about the mean line, in m, none missing
/// @param leastWidth in point spacings; see CProfileSplitter::GetLeastWidth
COMMONUIANALYSIS_API SProfileElements ComputeElements(std::span<const double> profile, double leastWidth);

/// Ten point height (ISO 4287-1:1984), m; NaN for a profile with fewer than five peaks or five valleys.
/// @param profile heights about the mean line, in m, none missing
COMMONUIANALYSIS_API double ComputeTenPointHeight(std::span<const double> profile);

} // namespace CommonUI::Analysis
