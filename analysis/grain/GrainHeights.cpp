#include "analysis/grain/detail/GrainHeights.h"

#include "analysis/numeric/detail/Summation.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

double FindMedian(std::vector<double>& heights)
{
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    if (heights.size() % 2 == 1)
        return *middle;
    const double below = *std::max_element(heights.begin(), middle);
    return below + (*middle - below) / 2;
}

} // namespace

SGrainHeights MeasureHeights(const SSurface& surface, std::span<const std::uint32_t> points, double threshold)
{
    std::vector<double> heights;
    heights.reserve(points.size());
    for (const std::uint32_t i : points)
        heights.push_back(surface.heights[i]);
    const auto [lowest, highest] = std::minmax_element(heights.begin(), heights.end());
    SGrainHeights result{.lowest = *lowest, .highest = *highest};
    result.lowestPoint = points[static_cast<std::size_t>(lowest - heights.begin())];
    result.highestPoint = points[static_cast<std::size_t>(
        std::find(heights.begin(), heights.end(), *highest) - heights.begin())];

    // Heights from the threshold keep the digits that absolute heights may lack.
    const auto n = static_cast<double>(points.size());
    const auto [offset, above, x, y, positive, negative] =
        PairwiseSum(0, points.size(), [&](std::size_t i) {
            const double height = heights[i] - threshold;
            const std::size_t row = points[i] / surface.points;
            const double line = static_cast<double>(row) + 0.5;
            const double column = static_cast<double>(points[i] % surface.points) + 0.5;
            const double size = std::fabs(height);
            return SSums<6>{height,
                            size,
                            size * column,
                            size * line,
                            std::max(heights[i], 0.0),
                            std::max(-heights[i], 0.0)};
        }).values;
    const double cell = surface.dx * surface.dy;
    result.meanOffset = offset / n;
    result.mean = std::clamp(threshold + result.meanOffset, result.lowest, result.highest);
    result.volume = above * cell;
    result.centreX = x / above * surface.dx;
    result.centreY = y / above * surface.dy;
    result.volumeAboveZero = positive * cell;
    result.volumeBelowZero = negative * cell;
    result.sd = std::sqrt(PairwiseSum(0, points.size(),
                                      [&](std::size_t i) {
                                          const double deviation = heights[i] - result.mean;
                                          return deviation * deviation;
                                      }) /
                          n);
    result.median = FindMedian(heights);
    return result;
}

} // namespace CommonUI::Analysis
