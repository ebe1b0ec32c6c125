#include "analysis/form/Background.h"

#include "analysis/numeric/Statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

// Class widths and bounds of the histogram.
struct SClasses {
    double lowest;
    double width;
    std::size_t count;

    double GetLower(std::size_t index) const { return lowest + width * static_cast<double>(index); }
};

SClasses MakeClasses(std::span<const double> rising)
{
    const double lowest = ComputeFractile(rising, 0.001);
    const double highest = ComputeFractile(rising, 0.999);
    const double count =
        std::clamp(std::round(4 * std::cbrt(static_cast<double>(rising.size()))), 16.0, 512.0);
    return {.lowest = lowest, .width = (highest - lowest) / count, .count = static_cast<std::size_t>(count)};
}

std::vector<double> CountHeights(std::span<const double> rising, const SClasses& classes)
{
    std::vector<double> counts(classes.count);
    for (const double height : rising) {
        const double position = (height - classes.lowest) / classes.width;
        ++counts[static_cast<std::size_t>(std::clamp(position, 0.0, static_cast<double>(classes.count - 1)))];
    }
    return counts;
}

std::vector<double> Smooth(std::span<const double> counts)
{
    constexpr double c_sd = 1.5;
    constexpr std::size_t c_reach = 5;
    std::vector<double> smooth(counts.size());
    for (std::size_t i = 0; i < counts.size(); ++i)
        for (std::size_t j = i < c_reach ? 0 : i - c_reach; j < std::min(i + c_reach + 1, counts.size());
             ++j) {
            const double x = (static_cast<double>(i) - static_cast<double>(j)) / c_sd;
            smooth[i] += std::exp(-x * x / 2) * counts[j];
        }
    return smooth;
}

std::size_t FindLowestPeak(std::span<const double> counts)
{
    const double significant = *std::max_element(counts.begin(), counts.end()) / 10;
    std::size_t peak = 0;
    for (std::size_t i = 1; i < counts.size(); ++i) {
        if (counts[i] > counts[peak])
            peak = i;
        else if (counts[peak] >= significant && counts[i] < 0.75 * counts[peak])
            break;
    }
    return peak;
}

double FindMedianAround(std::span<const double> rising, const SClasses& classes,
                        std::span<const double> counts, std::size_t peak)
{
    const double half = counts[peak] / 2;
    std::size_t first = peak;
    while (first > 0 && counts[first - 1] >= half)
        --first;
    std::size_t last = peak;
    while (last + 1 < counts.size() && counts[last + 1] >= half)
        ++last;
    const auto begin =
        first == 0 ? rising.begin() : std::lower_bound(rising.begin(), rising.end(), classes.GetLower(first));
    const auto end = last + 1 == counts.size()
                         ? rising.end()
                         : std::upper_bound(begin, rising.end(), classes.GetLower(last + 1));
    return ComputeFractile({begin, end}, 0.5);
}

} // namespace

double FindBackground(std::span<const double> heights)
{
    std::vector<double> rising;
    rising.reserve(heights.size());
    std::copy_if(heights.begin(), heights.end(), std::back_inserter(rising),
                 [](double height) { return !std::isnan(height); });
    std::sort(rising.begin(), rising.end());
    const SClasses classes = MakeClasses(rising);
    if (!(classes.width > 0))
        return ComputeFractile(rising, 0.5);
    const std::vector<double> counts = Smooth(CountHeights(rising, classes));
    return FindMedianAround(rising, classes, counts, FindLowestPeak(counts));
}

} // namespace CommonUI::Analysis
