#pragma once

#include "../../export/Export.h"
#include "../surface/Value.h"

#include <cstddef>
#include <span>

namespace CommonUI::Analysis
{

/// How many heights there are and between which they lie.
struct SRange {
    std::size_t count = 0;        ///< of the valid heights
    double lowest = c_undefined;  ///< m; NaN without a valid height
    double highest = c_undefined; ///< m; likewise
};

/// @param heights in any order, missing points NaN
COMMONUIANALYSIS_API SRange FindRange(std::span<const double> heights);

/// The height parameters that areal and profile families share, about a mean plane or line. All NaN if there
/// is no valid height; skewness and kurtosis are NaN if all heights are on the mean line.
struct SHeightParameters : SRange {
    double mean = c_undefined;     ///< arithmetic mean of z, m
    double average = c_undefined;  ///< arithmetic mean of |z|
    double rms = c_undefined;      ///< root mean square of z about the mean, m
    double skewness = c_undefined; ///< mean of z³ divided by the cube of the root mean square
    double kurtosis = c_undefined; ///< mean of z⁴ divided by its fourth power

    double GetPeak() const { return highest - mean; } ///< how far the highest point lies above the mean, m
    double GetPit() const { return mean - lowest; }   ///< how far the lowest point lies below it, m
};

/// About the mean of the valid heights, which is 0 where it would only be rounding noise.
/// @param heights in any order, missing points NaN
COMMONUIANALYSIS_API SHeightParameters ComputeHeightParameters(std::span<const double> heights);
/// About a mean line that was computed before, maybe from more heights than these.
/// @param heights in any order, missing points NaN
COMMONUIANALYSIS_API SHeightParameters ComputeHeightParameters(std::span<const double> heights, double mean);

} // namespace CommonUI::Analysis
