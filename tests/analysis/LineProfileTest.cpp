#include "analysis/profile/LineProfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace CommonUI::Analysis;

namespace
{

template<class FHeight>
SSurface Make(std::size_t points, std::size_t lines, double dx, double dy, const FHeight& height)
{
    SSurface surface{.points = points, .lines = lines, .dx = dx, .dy = dy};
    for (std::size_t i = 0; i < points * lines; ++i) {
        const std::size_t line = i / points;
        surface.heights.push_back(
            height(dx * static_cast<double>(i % points), dy * static_cast<double>(line)));
    }
    return surface;
}

} // namespace

TEST(LineProfile, PlanesAreExactAlongAnyLine)
{
    const auto plane = [](double x, double y) { return 3 * x - 2 * y + 1; };
    const SSurface surface = Make(11, 8, 0.1, 0.3, plane);
    struct SRow {
        SPlace from, to;
        std::size_t points;
    };
    for (const auto& [from, to, points] : {SRow{{0, 0}, {1, 0}, 11},
                                           {{0.3, 2.1}, {0.3, 0}, 8},
                                           {{0.05, 0.15}, {0.85, 0.15}, 9},
                                           {{0, 0}, {0.3, 1.2}, 6},
                                           {{1, 2.1}, {0, 0}, 13},
                                           {{0.4, 0.6}, {0.4, 0.6}, 1}}) {
        const SLineProfile profile = ExtractProfile(surface, from, to);
        ASSERT_EQ(profile.heights.size(), points) << from.x << " " << to.x;
        EXPECT_NEAR(profile.GetLength(), std::hypot(to.x - from.x, to.y - from.y), 1e-12);
        for (std::size_t i = 0; i < points; ++i) {
            const double share = points > 1 ? static_cast<double>(i) / static_cast<double>(points - 1) : 0;
            EXPECT_NEAR(profile.heights[i],
                        plane(from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)), 1e-12);
        }
    }
}

TEST(LineProfile, WavesAreAsNearAsTheSpacingLetsThem)
{
    // The error of a linear interpolation is an eighth of the spacing's square times the second derivative.
    constexpr double c_length = 40;
    const double k = 2 * std::numbers::pi / c_length;
    const SSurface surface =
        Make(101, 101, 1, 1, [k](double x, double y) { return std::sin(k * x) + std::cos(k * y); });
    const SLineProfile profile = ExtractProfile(surface, {3.3, 90.7}, {77.7, 12.1});
    const double step = profile.spacing / std::hypot(74.4, 78.6);
    EXPECT_NEAR(profile.spacing, 1, 0.01);
    for (std::size_t i = 0; i < profile.heights.size(); ++i) {
        const double share = step * static_cast<double>(i);
        EXPECT_NEAR(profile.heights[i],
                    std::sin(k * (3.3 + share * 74.4)) + std::cos(k * (90.7 - share * 78.6)), k * k / 4);
    }
}

TEST(LineProfile, MissingPointsAndTheBorderLeaveGaps)
{
    SSurface surface = Make(4, 3, 1, 1, [](double x, double y) { return x + 10 * y; });
    surface.heights[5] = c_missing; // at x = 1, y = 1
    struct SRow {
        SPlace place;
        double height;
    };
    const double no = c_missing;
    for (const auto& [place, height] : {SRow{{1, 1}, no},
                                        {{0.5, 0.5}, no},
                                        {{1, 0}, 1},
                                        {{1, 0.001}, no},
                                        {{2, 1}, 12},
                                        {{2.5, 1.5}, 17.5},
                                        {{3, 2}, 23},
                                        {{3.01, 2}, no},
                                        {{-0.01, 0}, no},
                                        {{0, 2.1}, no},
                                        {{2 + 1e-12, 1}, 12}}) {
        const double got = GetHeightAt(surface, place);
        if (std::isnan(height))
            EXPECT_TRUE(std::isnan(got)) << place.x << " " << place.y;
        else
            EXPECT_NEAR(got, height, 1e-9) << place.x << " " << place.y;
    }
    const SLineProfile profile = ExtractProfile(surface, {0, 1}, {3, 1});
    ASSERT_EQ(profile.heights.size(), 4u);
    EXPECT_EQ(profile.heights[0], 10);
    EXPECT_TRUE(std::isnan(profile.heights[1]));
    EXPECT_EQ(profile.heights[3], 13);

    // A single line may have no spacing along y.
    const SSurface line = Make(4, 1, 1, 0, [](double x, double) { return x; });
    EXPECT_EQ(ExtractProfile(line, {0, 0}, {3, 0}).heights, line.heights);
}
