#include "analysis/filter/GaussianFilter.h"

#include "analysis/surface/Surface.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

// The definition itself: weights within one cut-off, divided by the sum of those that meet a point.
double Average(const std::vector<double>& heights, std::size_t at, double cutoff)
{
    double sum = 0;
    double weights = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const double x = (static_cast<double>(i) - static_cast<double>(at)) / cutoff;
        const double alpha = std::sqrt(std::numbers::ln2 / std::numbers::pi);
        const double weight = std::exp(-std::numbers::pi * (x / alpha) * (x / alpha));
        if (std::abs(x) > 1 || std::isnan(heights[i]))
            continue;
        sum += weight * heights[i];
        weights += weight;
    }
    return sum / weights;
}

} // namespace

TEST(GaussianFilter, AveragesThePointsThatThereAre)
{
    struct SRow {
        std::size_t points;
        double cutoff;
        std::size_t missingEvery; // 0 for none
    };
    std::mt19937 random(7);
    for (const SRow& row : {SRow{200, 40, 0}, {200, 2.5, 3}, {256, 256, 2}, {257, 91.7, 5}, {1, 1, 0}}) {
        std::vector<double> heights;
        for (std::size_t i = 0; i < row.points; ++i)
            heights.push_back(1e-9 * static_cast<double>(random() % 1000));
        for (std::size_t i = 0; row.missingEvery != 0 && i < row.points; i += row.missingEvery)
            heights[i] = c_missing;
        const std::vector<double> line = CGaussianFilter(row.points, row.cutoff).ComputeMeanLine(heights);
        for (std::size_t i = 0; i < row.points; ++i) {
            if (std::isnan(heights[i]))
                EXPECT_TRUE(std::isnan(line[i]));
            else
                EXPECT_NEAR(line[i], Average(heights, i, row.cutoff), 1e-20) << row.points << " " << i;
        }
    }
}

TEST(GaussianFilter, TransmissionOfSines)
{
    constexpr std::size_t c_points = 4000;
    constexpr double c_cutoff = 200;
    const CGaussianFilter filter(c_points, c_cutoff);
    for (const double period : {100.0, 200.0, 400.0, 800.0}) {
        std::vector<double> sine;
        for (std::size_t i = 0; i < c_points; ++i)
            sine.push_back(std::cos(2 * std::numbers::pi * (static_cast<double>(i) - 2000) / period));
        // ISO 16610-21: exp(-π (α λc / λ)²), which is a half to the square of the ratio
        const double expected = std::pow(0.5, c_cutoff * c_cutoff / (period * period));
        EXPECT_NEAR(filter.ComputeMeanLine(sine)[2000], expected, 3e-7) << period;
    }
}

TEST(GaussianFilter, LeavesALevelLineExactly)
{
    std::vector<double> heights(100, 0.1);
    heights[3] = c_missing;
    const std::vector<double> line = CGaussianFilter(100, 20).ComputeMeanLine(heights);
    EXPECT_TRUE(std::isnan(line[3]));
    EXPECT_EQ(line[99], 0.1);
    EXPECT_TRUE(std::isnan(CGaussianFilter(1, 1).ComputeMeanLine(std::vector{c_missing})[0]));
}
