#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// Mean of the valid points of a window around each point; at borders the window is cut off. With one row it
/// smooths each line for itself, by the moving average of as many points as there are columns.
struct SMeanFilter {
    std::size_t columns = 3; ///< of the window, odd
    std::size_t rows = 3;    ///< of the window, odd
};

/// Smoothing with weights exp(-(i² + j²) / (2 sd²)) for a distance of i points and j lines. Weights beyond a
/// border or at missing points go to the others.
struct SGaussianSmoothing {
    std::size_t columns = 7; ///< of the window, odd
    std::size_t rows = 7;    ///< of the window, odd
    double sd = 1;           ///< standard deviation in points and lines, greater than 0
};

/// Filter with the weights of a window around each point, as they stand: the first is that of the upper left
/// point of the window, and nothing is mirrored.
///
/// - Weights none of which is negative smooth: the result is Σwz / Σw over the valid points of the window.
/// - Others, such as those that sharpen or find edges, would divide by next to nothing where points are
///   missing. There a missing point, or one beyond a border, counts as if it were as high as the point in the
///   middle; the result is Σwz divided by the sum of all weights, or Σwz itself if that is 0 (less than 1e-9
///   of the sum of their absolute values).
struct SKernel {
    std::size_t columns = 1;             ///< odd
    std::size_t rows = 1;                ///< odd
    std::vector<double> weights{1, 1.0}; ///< row after row, columns * rows, not all of them 0
};

/// The surface behind the filter. Missing points stay missing and have no weight; several threads work.
COMMONUIANALYSIS_API SSurface FilterMean(const SSurface& surface, const SMeanFilter& filter);
/// Likewise.
COMMONUIANALYSIS_API SSurface SmoothGaussian(const SSurface& surface, const SGaussianSmoothing& smoothing);
/// Likewise.
COMMONUIANALYSIS_API SSurface ApplyKernel(const SSurface& surface, const SKernel& kernel);

} // namespace CommonUI::Analysis
