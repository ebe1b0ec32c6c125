#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstddef>

namespace CommonUI::Analysis
{

/// Median of the valid points of a window around each point. It removes noise and spikes that cover less than
/// half the window, and keeps edges. At borders the window is cut off.
///
/// With a threshold it only replaces points that stand out, and leaves all others as they are: as a weak
/// median against noise, or to remove spikes.
struct SMedianFilter {
    std::size_t columns = 3; ///< of the window, odd
    std::size_t rows = 3;    ///< of the window, odd
    /// A point is replaced if it is further from the median than this many times the spread of the heights in
    /// the window, CRankWindow::GetSpread; 0 replaces every point. A window of less than 5 points has no
    /// spread that an outlier does not change, so there the threshold has to be 0.
    double threshold = 0;
};

/// Missing points stay missing and do not count in other points' windows.
COMMONUIANALYSIS_API SSurface FilterMedian(const SSurface& surface, const SMedianFilter& filter);

/// Removes spikes from each line for itself, by a median of points of the line.
struct SLineSpikeFilter {
    std::size_t points = 3; ///< of the window, odd
    /// A point is replaced by the median of its window if it is further from it than this many times the
    /// noise of the line, FindNoise. The less, the stronger the filter.
    double threshold = 3;
};

/// The surface without the spikes of its lines.
COMMONUIANALYSIS_API SSurface RemoveLineSpikes(const SSurface& surface, const SLineSpikeFilter& filter);

/// The median where the window is whole; at borders and beside missing points the heights themselves, so that
/// a slope stays what it is.
COMMONUIANALYSIS_API SSurface SmoothInside(const SSurface& surface, std::size_t columns, std::size_t rows);

} // namespace CommonUI::Analysis
