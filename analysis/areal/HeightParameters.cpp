#include "analysis/areal/HeightParameters.h"

#include "analysis/numeric/detail/Summation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CommonUI::Analysis
{

namespace
{

SHeightParameters ComputeAbout(double mean, const SRange& range, std::span<const double> heights)
{
    const auto count = static_cast<double>(range.count);
    // In shares of the extent, so that no power over- or underflows.
    const double extent = std::max(range.highest, mean) - std::min(range.lowest, mean);
    // A subnormal extent has no reciprocal.
    const double raise = extent < 0x1p-600 ? 0x1p600 : 1;
    const double perExtent = extent > 0 ? 1 / (extent * raise) : 0;
    const auto [first, second, third, fourth] = SumValid(heights, [&](double z) {
                                                    const double t = (z - mean) * raise * perExtent;
                                                    const double tt = t * t;
                                                    return SSums<4>{std::fabs(t), tt, tt * t, tt * tt};
                                                }).values;
    const double rms = std::sqrt(second / count);
    SHeightParameters result{range};
    result.mean = mean;
    result.average = first / count * extent;
    result.rms = rms * extent;
    result.skewness = third / count / (rms * rms * rms); // 0 / 0 if all heights are on the mean line
    result.kurtosis = fourth / count / (rms * rms * rms * rms);
    return result;
}

} // namespace

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
    const SRange range = FindRange(heights);
    if (range.count == 0)
        return {};
    const double mean = SumHeights(heights) / static_cast<double>(range.count);
    // Rounding must not lift the mean of equal heights off them.
    return ComputeAbout(std::clamp(mean, range.lowest, range.highest), range, heights);
}

SHeightParameters ComputeHeightParameters(std::span<const double> heights, double mean)
{
    const SRange range = FindRange(heights);
    return range.count == 0 ? SHeightParameters{} : ComputeAbout(mean, range, heights);
}

} // namespace CommonUI::Analysis
