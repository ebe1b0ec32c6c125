#pragma once

#include "../../export/Export.h"
#include "../surface/Value.h"

#include <cstddef>
#include <span>

namespace CommonUI::Analysis
{

/// How many heights there are and between which they lie.
struct SRange {
    std::size_t count = 0; ///< of the valid heights
    double lowest = c_undefined;
    double highest = c_undefined;
};

/// @param heights in any order, missing points NaN
COMMONUIANALYSIS_API SRange FindRange(std::span<const double> heights);

/// The height parameters that areal and profile families share, about a mean plane or line. All NaN if there
/// is no valid height; skewness and kurtosis are NaN if all heights are on the mean line.
struct SHeightParameters : SRange {
    double mean = c_undefined;
    double average = c_undefined; ///< arithmetic mean of |z|
    double rms = c_undefined;
    double skewness = c_undefined;
    double kurtosis = c_undefined;

    double GetPeak() const { return highest - mean; }
    double GetPit() const { return mean - lowest; }
};

/// About the mean of the valid heights, which is 0 where it would only be rounding noise.
/// @param heights in any order, missing points NaN
COMMONUIANALYSIS_API SHeightParameters ComputeHeightParameters(std::span<const double> heights);
/// About a mean line that was computed before, maybe from more heights than these.
/// @param heights in any order, missing points NaN
COMMONUIANALYSIS_API SHeightParameters ComputeHeightParameters(std::span<const double> heights, double mean);

} // namespace CommonUI::Analysis
