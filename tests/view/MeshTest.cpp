#include "view/Mesh.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

using namespace SurfaceView;
using CommonUI::Analysis::SSurface;

namespace
{

constexpr double c_hole = CommonUI::Analysis::c_missing;

SSurface MakeSurface(std::size_t points, std::vector<double> heights)
{
    SSurface surface{.points = points, .lines = heights.size() / points, .dx = 1e-6, .dy = 2e-6};
    surface.heights = std::move(heights);
    return surface;
}

// Twice the area of a triangle seen from above; positive when it runs anticlockwise.
double TurnOf(const SMesh& mesh, const std::array<std::uint32_t, 3>& triangle)
{
    const auto& a = mesh.vertices[triangle[0]].position;
    const auto& b = mesh.vertices[triangle[1]].position;
    const auto& c = mesh.vertices[triangle[2]].position;
    return (b[0] - a[0]) * (c[1] - a[1]) - (c[0] - a[0]) * (b[1] - a[1]);
}

} // namespace

TEST(Mesh, MissingPointsAreHoles)
{
    // The heights of three points in each line, and how many triangles and corners of the rim they make.
    const std::tuple<std::vector<double>, std::size_t, std::size_t> rows[]{
        {{0, 1, 2, 3, 4, 5, 6, 7, 8}, 8, 8},
        {{0, 1, 2, 3, c_hole, 5, 6, 7, 8}, 4, 8},           // one corner of each square
        {{c_hole, 1, 2, 3, 4, 5, 6, 7, 8}, 7, 6},           // the square keeps a half
        {{c_hole, c_hole, 2, 3, 4, 5, 6, 7, 8}, 5, 5},      // a square with two corners has nothing
        {{0, 1, 2, c_hole, c_hole, c_hole, 6, 7, 8}, 0, 4}, // two lines without anything between
    };
    for (const auto& [heights, triangles, rim] : rows) {
        const SSurface surface = MakeSurface(3, heights);
        const SMesh mesh = MakeMesh(surface, MakeBox(surface, 0));
        EXPECT_EQ(mesh.triangles.size(), triangles);
        EXPECT_EQ(mesh.rim.size(), rim);
        for (const auto& triangle : mesh.triangles)
            EXPECT_GT(TurnOf(mesh, triangle), 0);
    }
}

TEST(Mesh, VerticesLieInTheBlockAndNormalsStandOnTheSlope)
{
    const SSurface surface = MakeSurface(3, {0, 1e-6, 2e-6, 0, 1e-6, 2e-6});
    const SBox box = MakeBox(surface, 1);
    EXPECT_DOUBLE_EQ(box.x, 1); // 2 µm by 2 µm and 2 µm high, in units of 1 µm
    EXPECT_DOUBLE_EQ(box.y, 1);
    EXPECT_DOUBLE_EQ(box.z, 1);
    const SMesh mesh = MakeMesh(surface, box);
    EXPECT_EQ(mesh.vertices.front().position, (std::array<float, 3>{-1, -1, -1}));
    EXPECT_EQ(mesh.vertices.back().position, (std::array<float, 3>{1, 1, 1}));
    EXPECT_FLOAT_EQ(mesh.vertices[1].share, 0.5);
    for (const SVertex& vertex : mesh.vertices) {
        EXPECT_NEAR(vertex.normal[0], -std::sqrt(0.5), 1e-6);
        EXPECT_NEAR(vertex.normal[1], 0, 1e-6);
        EXPECT_NEAR(vertex.normal[2], std::sqrt(0.5), 1e-6);
    }
}

TEST(Mesh, BlockHasAShapeForEverySurface)
{
    const SBox box = MakeBox(MakeSurface(3, {0, 10e-9, c_hole, 0, 0, 0}), 0);
    EXPECT_DOUBLE_EQ(box.exaggeration, 50); // a quarter of 2 µm
    EXPECT_EQ(box.heights, CommonUI::CRange(0.0, 10e-9));
    const SBox flat = MakeBox(MakeSurface(2, {5e-9, 5e-9, 5e-9, 5e-9}), 0);
    EXPECT_DOUBLE_EQ(flat.exaggeration, 1);
    EXPECT_DOUBLE_EQ(flat.ShareOf(5e-9), 0.5);
    EXPECT_THROW(MakeBox(MakeSurface(2, {c_hole, c_hole, c_hole, c_hole}), 0), std::runtime_error);
    EXPECT_THROW(MakeBox(MakeSurface(3, {1, 2, 3}), 0), std::runtime_error);
    EXPECT_THROW(MakeBox(MakeSurface(1, {1, 2, 3}), 0), std::runtime_error);
}
