#pragma once

#include "Value.h"

#include <cstddef>
#include <span>

namespace SurfaceAnalysis
{

/// How many heights there are and between which they lie.
struct SRange {
    std::size_t count = 0; ///< of the valid heights
    double lowest = c_undefined;
    double highest = c_undefined;
};

/// @param heights in any order, missing points NaN
SRange FindRange(std::span<const double> heights);

/// The height parameters that areal and profile families share, about the mean of the valid heights. All NaN
/// if there are none; skewness and kurtosis are NaN if all heights are the same. A mean that is only rounding
/// noise is 0.
struct SHeightParameters : SRange {
    double mean = c_undefined;
    double average = c_undefined; ///< arithmetic mean of |z|
    double rms = c_undefined;
    double skewness = c_undefined;
    double kurtosis = c_undefined;

    double GetPeak() const { return highest - mean; }
    double GetPit() const { return mean - lowest; }
};

/// @param heights in any order, missing points NaN
SHeightParameters ComputeHeightParameters(std::span<const double> heights);

} // namespace SurfaceAnalysis
