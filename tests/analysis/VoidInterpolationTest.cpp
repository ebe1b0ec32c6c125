#include "analysis/filter/VoidInterpolation.h"

#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

TEST(VoidInterpolation, SolutionsOfLaplacesEquationAreRestored)
{
    const auto isVoid = [](std::size_t x, std::size_t y) {
        return (x > 5 && x < 80 && y > 3 && y < 60) ||
               (x > 90 && y > 70 && x < 119 && y < 89 && (x + y) % 3 > 0);
    };
    for (const auto& height : {+[](double x, double y) { return 3 + 2 * x - 5 * y; },
                               +[](double x, double y) { return x * x - y * y + x * y; }})
        for (const double dy : {1.0, 0.25, 30.0})
            for (const double scale : {1e-6, 1e-150, 1e90}) {
                const SSurface whole =
                    MakeSurface(120, 90, [&](double x, double y) { return scale * height(x, y * dy); });
                SSurface surface = whole;
                surface.dy = dy * surface.dx;
                for (std::size_t i = 0; i < surface.heights.size(); ++i)
                    if (isVoid(i % 120, i / 120))
                        surface.heights[i] = c_missing;
                InterpolateVoids(surface);
                const auto [low, high] = std::ranges::minmax(whole.heights);
                for (std::size_t i = 0; i < surface.heights.size(); ++i)
                    ASSERT_NEAR(surface.heights[i], whole.heights[i], 1e-6 * (high - low))
                        << dy << " " << scale;
            }
}

TEST(VoidInterpolation, StaysBetweenTheHeightsAroundAVoid)
{
    std::mt19937 random(3);
    SSurface surface = MakeSurface(200, 150, [&](double, double) {
        return random() % 50 > 0 ? c_missing : static_cast<double>(random() % 1000) * 1e-9;
    });
    InterpolateVoids(surface);
    EXPECT_EQ(surface.missing, 0U);
    const auto [low, high] = std::ranges::minmax(surface.heights);
    EXPECT_GE(low, -1e-12);
    EXPECT_LE(high, 999e-9 + 1e-12);
}

TEST(VoidInterpolation, SingleLinesAreInterpolatedAndEndLevel)
{
    SSurface line{.points = 7, .lines = 1, .dx = 1e-6, .dy = 1e-6, .missing = 5};
    line.heights = {c_missing, 1, c_missing, c_missing, 4, c_missing, c_missing};
    InterpolateVoids(line);
    const double expected[] = {1, 1, 2, 3, 4, 4, 4};
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_NEAR(line.heights[i], expected[i], 1e-8) << i;
    SSurface none{.points = 2, .lines = 1, .heights = {c_missing, c_missing}};
    EXPECT_THROW(InterpolateVoids(none), ENoPoints);
    SSurface empty;
    InterpolateVoids(empty);
}
