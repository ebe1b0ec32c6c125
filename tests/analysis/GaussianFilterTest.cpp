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
