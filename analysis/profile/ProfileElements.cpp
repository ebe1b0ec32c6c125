#include "analysis/profile/ProfileElements.h"

#include "analysis/areal/HeightParameters.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_bandShare = 0.05; // of the total height, to either side of the mean line

// Adds a crossing of the mean line. If it ends too narrow a portion, that portion goes, and both its
// crossings with it.
void AddCrossing(double position, double leastWidth, std::vector<double>& crossings)
{
    if (!crossings.empty() && position - crossings.back() < leastWidth)
        crossings.pop_back();
    else
        crossings.push_back(position);
}

// Where the profile crosses the mean line from a significant peak to a significant valley or back,
// alternating.
std::vector<double> FindCrossings(std::span<const double> profile, double leastHeight, double leastWidth)
{
    std::vector<double> crossings;
    double latest = 0;
    int side = 0; // of the significant portion passed last
    for (std::size_t i = 0; i < profile.size(); ++i) {
        const double z = profile[i];
        if (i > 0 && (profile[i - 1] < 0) != (z < 0))
            latest = static_cast<double>(i - 1) + profile[i - 1] / (profile[i - 1] - z);
        const int newSide = z > leastHeight ? 1 : z < -leastHeight ? -1 : side;
        if (side != 0 && newSide != side)
            AddCrossing(latest, leastWidth, crossings);
        side = newSide;
    }
    return crossings;
}

double SumGreatest(std::vector<double>& values, std::ptrdiff_t count)
{
    std::partial_sort(values.begin(), values.begin() + count, values.end(), std::greater<>());
    return std::accumulate(values.begin(), values.begin() + count, 0.0);
}

} // namespace

SProfileElements ComputeElements(std::span<const double> profile, double leastWidth)
{
    if (profile.empty())
        return {};
    const SRange range = FindRange(profile);
    const auto crossings = FindCrossings(profile, c_bandShare * (range.highest - range.lowest), leastWidth);
    if (crossings.size() < 3)
        return {};
    const std::size_t count = (crossings.size() - 1) / 2;
    const std::size_t last = count * 2;
    const auto elements = static_cast<double>(count);
    double heights = 0;
    for (std::size_t i = 0; i < last; i += 2) {
        const auto first = static_cast<std::size_t>(std::ceil(crossings[i]));
        const auto end = static_cast<std::size_t>(std::ceil(crossings[i + 2]));
        const SRange element = FindRange(profile.subspan(first, end - first));
        heights += element.highest - element.lowest;
    }
    return {.spacing = (crossings[last] - crossings[0]) / elements, .height = heights / elements};
}

double ComputeTenPointHeight(std::span<const double> profile)
{
    constexpr std::size_t c_count = 5;
    std::vector<double> peaks;
    std::vector<double> valleys;
    const auto add = [&](double extreme) {
        if (extreme != 0)
            (extreme > 0 ? peaks : valleys).push_back(std::fabs(extreme));
    };
    double extreme = 0; // of the portion that is being passed
    for (const double z : profile) {
        if ((z > 0 && extreme < 0) || (z < 0 && extreme > 0)) {
            add(extreme);
            extreme = z;
        } else if (std::fabs(z) > std::fabs(extreme)) {
            extreme = z;
        }
    }
    add(extreme);
    if (peaks.size() < c_count || valleys.size() < c_count)
        return c_undefined;
    return (SumGreatest(peaks, c_count) + SumGreatest(valleys, c_count)) / c_count;
}

} // namespace CommonUI::Analysis
