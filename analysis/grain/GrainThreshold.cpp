#include "analysis/grain/GrainThreshold.h"

#include "analysis/numeric/Statistics.h"
#include "analysis/surface/Value.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace CommonUI::Analysis
{

namespace
{

std::vector<double> PresentHeights(const SSurface& surface)
{
    std::vector<double> heights;
    heights.reserve(surface.heights.size());
    std::ranges::copy_if(surface.heights, std::back_inserter(heights),
                         [](double z) { return !std::isnan(z); });
    return heights;
}

double FindRelative(const std::vector<double>& heights, double share)
{
    const auto [low, high] = std::ranges::minmax_element(heights);
    return std::lerp(*low, *high, share);
}

// The square root of the variance between the classes of a division, as that of extreme heights would be too
// large.
double Contrast(double below, double countBelow, double above, double countAbove)
{
    return std::sqrt(countBelow) * std::sqrt(countAbove) * (above / countAbove - below / countBelow);
}

double FindOtsu(std::vector<double> heights)
{
    std::ranges::sort(heights);
    const double lowest = heights.front();
    const double range = heights.back() - lowest;
    if (range == 0)
        return lowest;
    // Sums of shares of the range neither overflow nor vanish.
    const auto share = [&](double z) { return z / range - lowest / range; };
    const double sum = std::transform_reduce(heights.begin(), heights.end(), 0.0, std::plus(), share);
    double below = 0;
    double best = 0;
    double first = lowest;
    double last = lowest;
    for (std::size_t i = 1; i < heights.size(); ++i) {
        below += share(heights[i - 1]);
        if (heights[i] == heights[i - 1])
            continue;
        const double contrast =
            Contrast(below, static_cast<double>(i), sum - below, static_cast<double>(heights.size() - i));
        constexpr double c_same = 1e-12; // of the contrast: what rounding leaves
        if (contrast < best * (1 - c_same))
            continue;
        last = std::midpoint(heights[i - 1], heights[i]);
        if (contrast > best * (1 + c_same))
            first = last;
        best = std::max(best, contrast);
    }
    return std::midpoint(first, last);
}

} // namespace

double FindThreshold(const SSurface& surface, EGrainThreshold threshold, double value)
{
    if (threshold == EGrainThreshold::Absolute)
        return value;
    std::vector<double> heights = PresentHeights(surface);
    if (heights.empty())
        return c_undefined;
    if (threshold == EGrainThreshold::Otsu)
        return FindOtsu(std::move(heights));
    if (!(value >= 0 && value <= 100))
        return c_undefined;
    return threshold == EGrainThreshold::Relative ? FindRelative(heights, value / 100)
                                                  : ComputeFractile(heights, value / 100);
}

} // namespace CommonUI::Analysis
