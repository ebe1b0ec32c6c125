#include "examples/analysis/Statistics.h"

#include "examples/analysis/HeightParameters.h"
#include "examples/analysis/Summation.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace SurfaceAnalysis
{

namespace
{

double InterpolateFractile(const std::vector<double>& rising, double share)
{
    if (rising.empty())
        return c_undefined;
    const double position = share * static_cast<double>(rising.size() - 1);
    const auto index = static_cast<std::size_t>(position);
    const double rest = position - static_cast<double>(index);
    const double value = rising[index];
    return rest > 0 ? value + rest * (rising[index + 1] - value) : value;
}

std::vector<double> SortRising(std::span<const double> values)
{
    std::vector<double> rising;
    std::copy_if(values.begin(), values.end(), std::back_inserter(rising),
                 [](double v) { return !std::isnan(v); });
    std::sort(rising.begin(), rising.end());
    return rising;
}

} // namespace

double ComputeFractile(std::span<const double> values, double share)
{
    return InterpolateFractile(SortRising(values), share);
}

std::vector<SValue> ComputeStatistics(std::span<const double> values, double share)
{
    const std::vector<double> rising = SortRising(values);
    const SHeightParameters moments = ComputeHeightParameters(rising);
    const auto n = static_cast<double>(moments.count);
    const double sd = n > 1 ? moments.rms * std::sqrt(n / (n - 1)) : c_undefined;
    return {
        {"Count", n},
        {"Sum", SumValid(rising, [](double v) { return v; })},
        {"Minimum", moments.lowest},
        {"Maximum", moments.highest},
        {"Mean", moments.mean},
        {"Sd", sd},
        {"SdPercent ", moments.mean == 0 ? c_undefined : 100 * sd / std::fabs(moments.mean)},
        {"Median", InterpolateFractile(rising, 0.5)},
        {"Fractile", InterpolateFractile(rising, share)},
    };
}

} // namespace SurfaceAnalysis
