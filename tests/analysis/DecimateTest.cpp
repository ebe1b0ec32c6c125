#include "analysis/surface/Decimate.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace CommonUI::Analysis;

TEST(Decimate, LargeSurfaceIsMadeOfMeansAndKeepsItsSize)
{
    SSurface surface{.points = 1001, .lines = 5, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t i = 0; i < 5 * 1001; ++i)
        surface.heights.push_back(static_cast<double>(i % 1001));
    for (std::size_t line = 0; line < 5; ++line)
        std::fill_n(surface.heights.begin() + static_cast<std::ptrdiff_t>(line * 1001 + 450), 101, c_missing);

    const SSurface small = Decimate(surface, 11);
    EXPECT_EQ(small.points, 11u);
    EXPECT_EQ(small.lines, 5u);
    EXPECT_DOUBLE_EQ(small.dx * 10, 1000e-6);
    EXPECT_DOUBLE_EQ(small.dy, 1e-6);
    EXPECT_DOUBLE_EQ(small.GetLine(2)[3], 300);
    EXPECT_DOUBLE_EQ(small.GetLine(2)[0], 25); // from 0 to 50
    EXPECT_TRUE(std::isnan(small.GetLine(2)[5]));
    EXPECT_EQ(small.missing, 5u);
    EXPECT_EQ(Decimate(surface, 1001).heights.size(), surface.heights.size());

    // A line stays one, and keeps its spacing.
    surface = {.points = 1001, .lines = 1, .dx = 1e-6, .dy = 1e-6, .heights = std::vector<double>(1001, 7)};
    const SSurface line = Decimate(surface, 11);
    EXPECT_EQ(line.heights, std::vector<double>(11, 7));
    EXPECT_EQ(line.dy, 1e-6);
}
