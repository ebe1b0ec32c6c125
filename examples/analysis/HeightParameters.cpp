#include "examples/analysis/HeightParameters.h"

#include "examples/analysis/Summation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace SurfaceAnalysis
{

SRange FindRange(std::span<const double> heights)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    SRange range{.count = 0, .lowest = c_infinity, .highest = -c_infinity};
    for (const double z : heights) {
        range.count += !std::isnan(z);
        range.lowest = std::min(range.lowest, z); // keeps the first if z is NaN
        range.highest = std::max(range.highest, z);
    }
    return range.count == 0 ? SRange{} : range;
}

SHeightParameters ComputeHeightParameters(std::span<const double> heights)
{
    SHeightParameters result{FindRange(heights)};
    if (result.count == 0)
        return result;
    const auto count = static_cast<double>(result.count);
    const double sum = SumHeights(heights);
    // Rounding must not lift the mean of equal heights off them.
    const double mean = std::clamp(sum / count, result.lowest, result.highest);
    // In shares of the range, so that no power over- or underflows.
    const double range = result.highest - result.lowest;
    const double perRange = range > 0 ? 1 / range : 0;
    const auto [first, second, third, fourth] = SumValid(heights, [&](double z) {
                                                    const double t = (z - mean) * perRange;
                                                    const double tt = t * t;
                                                    return SSums<4>{std::fabs(t), tt, tt * t, tt * tt};
                                                }).values;
    const double rms = std::sqrt(second / count);
    result.mean = mean;
    result.average = first / count * range;
    result.rms = rms * range;
    result.skewness = third / count / (rms * rms * rms); // 0 / 0 if there is no range
    result.kurtosis = fourth / count / (rms * rms * rms * rms);
    return result;
}

} // namespace SurfaceAnalysis
