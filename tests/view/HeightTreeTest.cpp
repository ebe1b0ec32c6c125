#include "view/HeightTree.h"

#include "tests/view/Looks.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SurfaceView;
using CommonUI::Analysis::SSurface;

namespace
{

constexpr std::size_t c_points = 75;
constexpr std::size_t c_lines = 50;

// Two waves, low enough to be seen from all the looks from above.
SSurface MakeWaves()
{
    SSurface surface{.points = c_points, .lines = c_lines, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t i = 0; i < c_points * c_lines; ++i)
        surface.heights.push_back(1e-7 * std::sin(static_cast<double>(i % c_points) / 9) *
                                  std::cos(static_cast<double>(i / c_points) / 7));
    return surface;
}

SPoint PlaceOf(const SSurface& surface, const SBox& box, std::size_t column, std::size_t line)
{
    return {2 * box.x * static_cast<double>(column) / (c_points - 1) - box.x,
            2 * box.y * static_cast<double>(line) / (c_lines - 1) - box.y,
            box.PlaceHeight(surface.heights[line * c_points + column])};
}

} // namespace

TEST(HeightTree, PointsAreFoundWhereTheyAreDrawn)
{
    const SSurface surface = MakeWaves();
    const CHeightTree tree(surface);
    const SBox box = MakeBox(surface, 20);
    for (const auto& [direction, orthographic] : c_looks) {
        if (direction.elevation < 20)
            continue; // waves hide each other
        SView view = CenterView(box, direction, orthographic, {20, 10, 420, 310}, 1.5);
        Pan(view, {0.1, -0.2});
        for (std::size_t i = 0; i < 40; ++i) {
            const SPoint place =
                PlaceOf(surface, box, 1 + i * 31 % (c_points - 2), 1 + i * 17 % (c_lines - 2));
            const auto hit = tree.FindHit(surface, box, view.Unproject(view.Project(place)));
            ASSERT_TRUE(hit);
            EXPECT_TRUE(hit->isOutside);
            EXPECT_NEAR(hit->place.x, place.x, 1e-9);
            EXPECT_NEAR(hit->place.y, place.y, 1e-9);
            EXPECT_NEAR(hit->place.z, place.z, 1e-9);
        }
        EXPECT_FALSE(tree.FindHit(surface, box, view.Unproject(view.Project({0, 3, 0}))));
    }
}

TEST(HeightTree, WhatStandsInFrontHidesAndHolesDoNot)
{
    SSurface surface{.points = c_points, .lines = c_lines, .dx = 1e-6, .dy = 1e-6};
    surface.heights.assign(c_points * c_lines, 0.0);
    for (std::size_t column = 0; column < c_points; ++column)
        surface.heights[20 * c_points + column] = 1e-6; // a ridge
    surface.heights[30 * c_points + 37] = CommonUI::Analysis::c_missing;
    const CHeightTree tree(surface);
    const SBox box = MakeBox(surface, 10);
    const auto find = [&](const SPoint& from, const SPoint& to) {
        return tree.FindHit(surface, box, {from, {to.x - from.x, to.y - from.y, to.z - from.z}});
    };
    const SPoint behind = PlaceOf(surface, box, 37, 22);
    const auto ridge = find({behind.x, -3, box.z}, behind);
    ASSERT_TRUE(ridge);
    EXPECT_LT(ridge->place.y, PlaceOf(surface, box, 37, 20).y);
    const SPoint hole = PlaceOf(surface, box, 37, 31);
    EXPECT_FALSE(find({hole.x, hole.y - 0.01, 1}, {hole.x, hole.y - 0.01, -1}));
    EXPECT_TRUE(find({hole.x + 0.1, hole.y, 1}, {hole.x + 0.1, hole.y, -1}));
    const auto below = find({0.5, 0.5, -1}, {0.5, 0.5, 1});
    ASSERT_TRUE(below);
    EXPECT_FALSE(below->isOutside);
}
