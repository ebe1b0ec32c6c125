#include "measurement/charts/Curve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CommonUI::Measurement
{

namespace
{

void AddColumn(std::span<const double> heights, std::size_t begin, std::size_t end,
               std::vector<SSample>& samples)
{
    std::size_t lowest = end;
    std::size_t highest = end;
    for (std::size_t i = begin; i < end; ++i) {
        if (std::isnan(heights[i]))
            continue;
        if (lowest == end || heights[i] < heights[lowest])
            lowest = i;
        if (highest == end || heights[i] > heights[highest])
            highest = i;
    }
    if (lowest == end) {
        samples.push_back({begin, std::numeric_limits<double>::quiet_NaN()});
        return;
    }
    const auto [first, last] = std::minmax(lowest, highest);
    samples.push_back({first, heights[first]});
    if (last != first)
        samples.push_back({last, heights[last]});
}

} // namespace

std::vector<SSample> ThinOut(std::span<const double> heights, std::size_t columns)
{
    std::vector<SSample> samples;
    if (heights.size() <= 2 * columns) {
        for (std::size_t i = 0; i < heights.size(); ++i)
            samples.push_back({i, heights[i]});
        return samples;
    }
    samples.reserve(2 * columns);
    const double width = static_cast<double>(heights.size()) / static_cast<double>(columns);
    std::size_t begin = 0;
    for (std::size_t column = 1; column <= columns; ++column) {
        const auto end = std::min(
            heights.size(), static_cast<std::size_t>(std::llround(width * static_cast<double>(column))));
        AddColumn(heights, begin, end, samples);
        begin = end;
    }
    return samples;
}

} // namespace CommonUI::Measurement
