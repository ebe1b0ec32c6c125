#include "view/Drawing.h"

#include "platform/memory/TableGLEntryPoints.h"
#include "programs/offscreen/OffscreenContext.h"
#include "tests/view/PlainFont.h"
#include "view/ColorTexture.h"
#include "view/detail/OpenGL.h"
#include "view/DetailLevels.h"
#include "view/GrainTexture.h"
#include "view/MeshBuffers.h"
#include "view/StackDepths.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SurfaceView;

namespace
{

constexpr CommonUI::SSize c_size{240, 180};

// A surface with a hole and a scene of it.
SScene MakeScene(const CFont& font, double zScale)
{
    CommonUI::Analysis::SSurface surface{.points = 40, .lines = 30, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t i = 0; i < 40 * 30; ++i)
        surface.heights.push_back(i % 401 == 200 ? CommonUI::Analysis::c_missing
                                                 : 1e-6 * std::sin(static_cast<double>(i % 40) / 4));
    const SDirection direction{30, 35};
    SScene scene{
        .box = MakeBox(surface, zScale), .colors = {{0, 0, 80}, {255, 220, 0}}, .eye = direction.ToEye()};
    scene.mesh = MakeMesh(surface, scene.box);
    scene.layout = MakeLayout(scene.box, direction, false, {}, c_size, 1, font);
    return scene;
}

std::vector<std::uint8_t> PictureOf(const SScene& scene, const CFont& font, const SKept& kept,
                                    SFrameWork& work)
{
    const SStackDepths before = ReadStackDepths();
    work = Draw(scene, c_size, font, kept);
    CheckRestored(before, ReadStackDepths());
    GLint bound = 1;
    glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &bound);
    EXPECT_EQ(bound, 0);
    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
    return ReadPixels(c_size).bytes;
}

// How many bytes of two pictures differ by more than rounding.
std::ptrdiff_t CountDifferent(const std::vector<std::uint8_t>& one, const std::vector<std::uint8_t>& other)
{
    std::ptrdiff_t count = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        count += std::abs(one[i] - other[i]) > 4;
    return count;
}

} // namespace

TEST(Drawing, WhatTheDriverKeepsGivesTheSamePictureAndIsNotSentAgain)
{
    std::string reason;
    const auto context = Offscreen::CContext::Make(c_size.cx, c_size.cy, reason);
    if (!context)
        GTEST_SKIP() << reason;
    CommonUI::CTableGLEntryPoints functions;
    for (const char* const name : {"glGenBuffers", "glDeleteBuffers", "glBindBuffer", "glBufferData"})
        functions.Set(name, reinterpret_cast<void (*)()>(Offscreen::CContext::FindFunction(name)));
    const CPlainFont font;
    const SScene scene = MakeScene(font, 4);
    SFrameWork sent;
    const auto expected = PictureOf(scene, font, {}, sent);

    const CColorTexture texture(scene.colors);
    CommonUI::CTableGLEntryPoints none;
    const CMeshBuffers without = [&] {
        const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(none);
        return CMeshBuffers(scene.mesh);
    }();
    EXPECT_FALSE(without.IsKept());
    const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(functions);
    const CMeshBuffers mesh(scene.mesh);
    EXPECT_TRUE(mesh.IsKept());
    SFrameWork work;
    EXPECT_EQ(CountDifferent(PictureOf(scene, font, {&mesh, &texture}, work), expected), 0);
    EXPECT_EQ(work.vertices, 1200u);
    EXPECT_EQ(sent.bytesSent - work.bytesSent, mesh.GetByteCount() + 2 * sizeof(CommonUI::SColor));
    EXPECT_EQ(CountDifferent(PictureOf(scene, font, {&without, &texture}, work), expected), 0);
    EXPECT_GT(work.bytesSent, mesh.GetByteCount());

    // A mesh that was made for another height is stretched, with its normals.
    const SScene higher = MakeScene(font, 8);
    SFrameWork other;
    const auto high = PictureOf(higher, font, {}, other);
    EXPECT_LT(CountDifferent(PictureOf(higher, font, {&mesh, &texture}, work), high), 100);
    EXPECT_GT(CountDifferent(high, expected), 1000);
}

TEST(Drawing, GrainsLieOnTheSurfaceAndLeaveNothingBehind)
{
    std::string reason;
    const auto context = Offscreen::CContext::Make(c_size.cx, c_size.cy, reason);
    if (!context)
        GTEST_SKIP() << reason;
    CommonUI::CTableGLEntryPoints functions;
    functions.Set("glActiveTexture",
                  reinterpret_cast<void (*)()>(Offscreen::CContext::FindFunction("glActiveTexture")));
    const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(functions);
    const CPlainFont font;
    const SScene scene = MakeScene(font, 4);
    SFrameWork work;
    const auto plain = PictureOf(scene, font, {}, work);
    // One grain, of the columns from 10 to 19, whichever part is taken.
    CommonUI::Analysis::SGrainMap map{.points = 40, .lines = 30, .count = 1};
    for (std::size_t i = 0; i < 40 * 30; ++i)
        map.labels.push_back(i % 40 >= 10 && i % 40 < 20);
    const auto pictureOf = [&](const SGridPart& part) {
        const CGrainTexture grains(map, {.inside = 0xFF0000FF, .outside = 0xFF0000FF, .chosen = 0xFF00FF00},
                                   1, part, 512);
        return PictureOf(scene, font, {.grains = &grains}, work);
    };
    const auto marked = pictureOf({.points = 40, .lines = 30});
    const auto isGreen = [&](std::size_t column) {
        const SBox& box = scene.box;
        const double place = (static_cast<double>(column) / 39 * 2 - 1) * box.x;
        const double height = box.PlaceHeight(1e-6 * std::sin(static_cast<double>(column) / 4));
        const SPixel pixel = scene.layout.view.Project({place, 0, height});
        const std::size_t at = 4 * (static_cast<std::size_t>(pixel.y) * static_cast<std::size_t>(c_size.cx) +
                                    static_cast<std::size_t>(pixel.x));
        return marked[at] < 60 && marked[at + 1] > 200 && marked[at + 2] < 60;
    };
    for (const std::size_t column : {0u, 8u, 11u, 15u, 18u, 21u, 39u})
        EXPECT_EQ(isGreen(column), column >= 10 && column < 20) << column;
    EXPECT_LT(CountDifferent(pictureOf({.column = 5, .points = 20, .lines = 30}), marked), 1000);
    EXPECT_EQ(CountDifferent(PictureOf(scene, font, {}, work), plain), 0);
    EXPECT_GT(CountDifferent(marked, plain), 5000);
}

TEST(DetailLevels, GoFromCoarseToAllPointsThatAPictureShows)
{
    const std::tuple<std::size_t, std::vector<std::size_t>> rows[]{
        {3, {3}}, {96, {96}}, {100, {96, 100}}, {500, {96, 192, 384, 500}}, {1000, {96, 192, 384, 768}}};
    for (const auto& [points, sides] : rows) {
        CommonUI::Analysis::SSurface surface{.points = points, .lines = 2, .dx = 1e-6, .dy = 1e-6};
        for (std::size_t i = 0; i < 2 * points; ++i)
            surface.heights.push_back(static_cast<double>(i % 7) * 1e-9);
        std::vector<std::size_t> found;
        for (const SMesh& mesh : MakeDetailLevels(surface, MakeBox(surface, 0)))
            found.push_back(mesh.vertices.size() / 2);
        EXPECT_EQ(found, sides);
    }
}

TEST(DetailLevels, MovingPicturesTakeTheFinestLevelThatIsInTime)
{
    // Seconds of a picture without triangles and of each triangle, and the level that it comes to.
    const std::tuple<double, double, std::size_t> rows[]{{0.001, 1e-9, 3}, {0.01, 1e-7, 2}, {0.01, 2e-6, 0},
                                                         {0.2, 1e-9, 0},   {0.02, 0, 3},    {0.02, 5e-7, 0}};
    for (const auto& [base, each, level] : rows) {
        const std::vector<std::size_t> triangles{18'000, 73'000, 294'000, 1'180'000};
        CDetailChoice choice(triangles.size(), 0.05);
        EXPECT_EQ(choice.GetMoving(), 0u);
        std::vector<std::size_t> last;
        for (int frame = 0; frame < 40; ++frame) {
            choice.AddTime(base + each * static_cast<double>(triangles[choice.GetMoving()]));
            if (frame >= 20)
                last.push_back(choice.GetMoving());
        }
        EXPECT_EQ(last, std::vector<std::size_t>(20, level)) << base << ' ' << each;
    }
}
