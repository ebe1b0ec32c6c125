#include "analysis/numeric/Statistics.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/numeric/detail/Summation.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

double InterpolateFractile(const std::vector<double>& rising, double share)
{
    if (rising.empty() || !(share >= 0 && share <= 1))
        return c_undefined;
    const double position = share * static_cast<double>(rising.size() - 1);
    const auto index = static_cast<std::size_t>(position);
    const double rest = position - static_cast<double>(index);
    const double value = rising[index];
    return rest > 0 ? value + rest * (rising[index + 1] - value) : value;
}

std::vector<double> SortRising(std::span<const double> values)
{
    const auto isThere = [](double v) { return !std::isnan(v); };
    std::vector<double> rising; // of just the room it takes: there may be millions
    rising.reserve(static_cast<std::size_t>(std::ranges::count_if(values, isThere)));
    std::ranges::copy_if(values, std::back_inserter(rising), isThere);
    std::sort(rising.begin(), rising.end());
    return rising;
}

// The narrowest run of `count` values among those that are not empty and rise; the first if there are
// several.
std::span<const double> FindNarrowest(std::span<const double> rising, std::size_t count)
{
    std::size_t best = 0;
    for (std::size_t i = 1; i + count <= rising.size(); ++i)
        if (rising[i + count - 1] - rising[i] < rising[best + count - 1] - rising[best])
            best = i;
    return rising.subspan(best, count);
}

} // namespace

double ComputeFractile(std::span<const double> values, double share)
{
    return InterpolateFractile(SortRising(values), share);
}

double FindNoise(std::span<const double> values, std::size_t step)
{
    std::vector<double> differences;
    differences.reserve(values.size());
    for (std::size_t i = step; i < values.size(); ++i)
        differences.push_back(std::fabs(values[i] - values[i - step]));
    const double median = ComputeFractile(differences, 0.5);
    return std::isnan(median) ? 0 : median / (0.6745 * std::numbers::sqrt2);
}

double ComputeMode(std::span<const double> values)
{
    const std::vector<double> rising = SortRising(values);
    std::span<const double> rest = rising;
    while (rest.size() > 3)
        rest = FindNarrowest(rest, (rest.size() + 1) / 2);
    if (rest.size() == 3) {
        const double below = rest[1] - rest[0];
        const double above = rest[2] - rest[1];
        if (below == above)
            return rest[1];
        rest = rest.subspan(below < above ? 0 : 1, 2);
    }
    return rest.empty() ? c_undefined : rest.front() + (rest.back() - rest.front()) / 2;
}

std::vector<SValue> ComputeStatistics(std::span<const double> values, double share)
{
    const std::vector<double> rising = SortRising(values);
    const SHeightParameters moments = ComputeHeightParameters(rising);
    const auto n = static_cast<double>(moments.count);
    const double sd = n > 1 ? moments.rms * std::sqrt(n / (n - 1)) : c_undefined;
    std::vector<SValue> statistics = {
        {"Count", n},
        {"Sum", SumHeights(rising)},
        {"Minimum", moments.lowest},
        {"Maximum", moments.highest},
        {"Mean", moments.mean},
        {"Sd", sd},
        {"SdPercent ", moments.mean == 0 ? c_undefined : 100 * sd / std::fabs(moments.mean)},
        {"Median", InterpolateFractile(rising, 0.5)},
        {"Fractile", InterpolateFractile(rising, share)},
    };
    for (SValue& statistic : statistics) {
        if (std::isnan(statistic.value))
            statistic.reason = rising.empty() ? "there is no value"
                               : n > 1        ? "the mean is 0"
                                              : "there is a single value";
    }
    return statistics;
}

SWeighted ComputeWeighted(std::span<const double> values, std::span<const double> weights)
{
    const auto sum = [&](const auto& term) {
        return PairwiseSum(0, values.size(), [&](std::size_t i) {
            return weights[i] > 0 && !std::isnan(values[i]) ? weights[i] * term(values[i]) : 0;
        });
    };
    const double weight = sum([](double) { return 1; });
    const double mean = sum([](double v) { return v; }) / weight; // 0 / 0 without values
    return {.mean = mean, .sd = std::sqrt(sum([&](double v) { return (v - mean) * (v - mean); }) / weight)};
}

} // namespace CommonUI::Analysis
