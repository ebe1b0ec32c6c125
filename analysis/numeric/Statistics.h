#pragma once

#include "../../export/Export.h"
#include "../surface/Value.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Value below which a share of the values lies, by linear interpolation between neighbours in rising
/// order: the lowest for 0, the median for 0.5, the highest for 1. NaN values are left out; without any
/// other the result is NaN.
/// @param share 0 to 1; the result is NaN for any other
COMMONUIANALYSIS_API double ComputeFractile(std::span<const double> values, double share);

/// The standard deviation of the white noise by which values a step apart would differ as much, median
/// |v[i+step] - v[i]| / (0.6745 √2): a few spikes, steps or streaks do not change it. 0 if of no two such
/// values both are there.
/// @param step 1 for neighbours; the points of a line for those across the lines of a surface
COMMONUIANALYSIS_API double FindNoise(std::span<const double> values, std::size_t step);

/// The value around which the others are densest: the half-sample mode (Robertson and Cryer 1974), which
/// keeps the narrowest half of the values again and again and needs no classes. NaN values are left out;
/// without any other the result is NaN.
COMMONUIANALYSIS_API double ComputeMode(std::span<const double> values);

/// Statistics of a list of values, NaN values left out: Count, Sum, Minimum, Maximum, Mean, Sd, SdPercent,
/// Median and Fractile, in this order. Sd is that of a sample (n - 1, NaN for a single value), "SdPercent "
/// (the key ends in a blank) is Sd in percent of |Mean|, NaN for a mean of 0. A sum of values that cancel but
/// for rounding is 0. Of no value at all Count and Sum are 0, the others NaN.
/// @param share for Fractile, 0 to 1
COMMONUIANALYSIS_API std::vector<SValue> ComputeStatistics(std::span<const double> values,
                                                           double share = 0.25);

/// A mean in which each value counts with its weight.
struct SWeighted {
    double mean = c_undefined; ///< Σwv / Σw
    double sd = c_undefined; ///< √(Σw(v - mean)² / Σw): the weights are shares of a whole, not repetitions
};

/// A value that is NaN or has no weight above 0 is left out; without any other the result is NaN.
/// @param weights one for each value
COMMONUIANALYSIS_API SWeighted ComputeWeighted(std::span<const double> values,
                                               std::span<const double> weights);

} // namespace CommonUI::Analysis
