#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstddef>

namespace CommonUI::Analysis
{

/// Removes streaks, which scanning leaves along the lines: runs of points, one line or a few lines wide, that
/// are all higher than the points above and below by more than a threshold, or all lower. They are replaced
/// by straight interpolation from the line above to the line below. Narrow streaks go first.
///
/// A streak is not seen at the first and last line, nor where it or one of the lines beside it has missing
/// points.
struct SStreakFilter {
    bool isBright = true;   ///< higher than the lines beside it, otherwise lower
    std::size_t width = 1;  ///< of the widest streak, in lines
    std::size_t length = 8; ///< of the shortest, in points
    /// In multiples of FindNoise across the lines.
    double threshold = 3;
};

/// All other points stay as they are.
COMMONUIANALYSIS_API SSurface RemoveStreaks(const SSurface& surface, const SStreakFilter& filter);

} // namespace CommonUI::Analysis
