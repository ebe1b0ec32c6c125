#include "examples/analysis/HeightParameters.h"

#include "examples/analysis/Summation.h"

#include <algorithm>
#include <cmath>

namespace SurfaceAnalysis
{

SHeightParameters ComputeHeightParameters(std::span<const double> heights)
{
    SHeightParameters result;
    const auto [count, sum] = SumValid(heights, [](double z) { return SSums<2>{1, z}; }).values;
    result.count = count;
    if (count == 0)
        return result;
    for (const double z : heights) {
        result.lowest = std::fmin(result.lowest, z); // fmin and fmax pass NaN over
        result.highest = std::fmax(result.highest, z);
    }
    // Rounding must not lift the mean of equal heights off them.
    const double mean = std::clamp(sum / count, result.lowest, result.highest);
    const auto [absolute, square] = SumValid(heights, [&](double z) {
                                        return SSums<2>{std::fabs(z - mean), (z - mean) * (z - mean)};
                                    }).values;
    const double rms = std::sqrt(square / count);
    result.mean = mean;
    result.average = absolute / count;
    result.rms = rms;
    if (rms == 0)
        return result;
    const auto [third, fourth] = SumValid(heights, [&](double z) {
                                     const double t = (z - mean) / rms;
                                     return SSums<2>{t * t * t, t * t * t * t};
                                 }).values;
    result.skewness = third / count;
    result.kurtosis = fourth / count;
    return result;
}

} // namespace SurfaceAnalysis
