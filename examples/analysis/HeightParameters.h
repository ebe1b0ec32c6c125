#pragma once

#include "Value.h"

#include <span>

namespace SurfaceAnalysis
{

/// The height parameters that areal and profile families share, about the mean of the valid heights. All NaN
/// if there are none; skewness and kurtosis are NaN if all heights are the same.
struct SHeightParameters {
    double count = 0;
    double mean = c_undefined;
    double lowest = c_undefined;
    double highest = c_undefined;
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
