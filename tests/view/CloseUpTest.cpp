#include "view/CloseUp.h"

#include "programs/offscreen/OffscreenContext.h"
#include "tests/view/Looks.h"
#include "tests/view/PlainFont.h"
#include "view/Drawing.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace SurfaceView;
using CommonUI::Analysis::SSurface;

namespace
{

constexpr CommonUI::SSize c_size{240, 180};

// Waves of which each has some points, with one narrow peak.
std::shared_ptr<const SViewedSurface> MakeSurface(std::size_t points, std::size_t lines)
{
    SSurface surface{.points = points, .lines = lines, .dx = 1e-7, .dy = 1e-7};
    for (std::size_t i = 0; i < points * lines; ++i)
        surface.heights.push_back(1e-6 * std::sin(static_cast<double>(i % points) / 20) *
                                  std::cos(static_cast<double>(i / points) / 30));
    surface.heights[lines / 2 * points + points / 2] = 5e-6;
    return MakeViewedSurface("waves", std::move(surface));
}

void BringToMiddle(SView& view, const SPoint& point)
{
    const CommonUI::SRect& viewport = view.viewport;
    const double side = std::min(viewport.GetWidth(), viewport.GetHeight());
    for (int round = 0; round < 10; ++round) {
        const SPixel pixel = view.Project(point);
        Pan(view, {((viewport.left + viewport.right) / 2.0 - pixel.x) / side,
                   ((viewport.top + viewport.bottom) / 2.0 - pixel.y) / side});
    }
}

// What is seen by a look at every point, and the cut below the sides.
SGridPart FindSeenOneByOne(const SViewedSurface& viewed, const SView& view)
{
    const SSurface& surface = viewed.GetSurface();
    std::size_t left = surface.points;
    std::size_t right = 0;
    std::size_t first = surface.lines;
    std::size_t last = 0;
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        const std::size_t column = i % surface.points;
        const std::size_t line = i / surface.points;
        const SPixel pixel = view.Project(
            {(2.0 * static_cast<double>(column) / static_cast<double>(surface.points - 1) - 1) *
                 viewed.box->x,
             (2.0 * static_cast<double>(line) / static_cast<double>(surface.lines - 1) - 1) * viewed.box->y,
             viewed.box->PlaceHeight(surface.heights[i])});
        if (pixel.x < view.viewport.left || pixel.x > view.viewport.right || pixel.y < view.viewport.top ||
            pixel.y > view.viewport.bottom)
            continue;
        left = std::min(left, column);
        right = std::max(right, column);
        first = std::min(first, line);
        last = std::max(last, line);
    }
    return {.column = left, .line = first, .points = right - left + 1, .lines = last - first + 1};
}

} // namespace

TEST(CloseUp, HoldsAllThatIsSeen)
{
    const auto viewed = MakeSurface(300, 200);
    const SGridPart all{.points = 300, .lines = 200};
    for (const auto& [direction, orthographic] : c_looks)
        for (const double zoom : {0.5, 3.0, 20.0}) {
            SView view = CenterView(*viewed->box, direction, orthographic, {0, 0, 400, 300}, zoom);
            Pan(view, {0.3 * zoom, 0.1 * zoom});
            const SGridPart seen = viewed->tree.FindSeen(*viewed->box, view);
            EXPECT_TRUE(all.Holds(seen));
            const SGridPart needed = FindSeenOneByOne(*viewed, view);
            if (needed.column < 300) {
                EXPECT_TRUE(seen.Holds(needed)) << direction.azimuth << ' ' << zoom;
            }
            if (zoom == 20 && direction.elevation == 90) { // not much more than that
                EXPECT_LT(seen.points, needed.points + 32);
            }
            if (zoom == 0.5) {
                EXPECT_EQ(seen, all);
            }
        }
}

TEST(CloseUp, ShowsSinglePointsAndNoEdges)
{
    std::string reason;
    const auto context = Offscreen::CContext::Make(c_size.cx, c_size.cy, reason);
    if (!context)
        GTEST_SKIP() << reason;
    const auto viewed = MakeSurface(2000, 1200);
    const SBox& box = *viewed->box;
    const CPlainFont font;
    const SDirection direction{30, 35};
    SScene scene{.box = box, .colors = {{0, 0, 80}, {255, 220, 0}}, .eye = direction.ToEye()};
    const CMeshBuffers all(viewed->levels.back());
    const CMeshBuffers finest = [&] {
        scene.mesh = MakeMesh(viewed->GetSurface(), box);
        return CMeshBuffers(scene.mesh);
    }();
    CCloseUp closeUp(0.2);
    const auto pictureOf = [&](const CMeshBuffers& mesh) {
        Draw(scene, c_size, font, {.mesh = &mesh});
        return ReadPixels(c_size).bytes;
    };
    const auto countDifferent = [](const auto& one, const auto& other) {
        std::ptrdiff_t count = 0;
        for (std::size_t i = 0; i < one.size(); ++i)
            count += std::abs(one[i] - other[i]) > 8;
        return count;
    };
    // Beside the middle, at a side of the block, and at two corners.
    const SPoint middles[]{
        {-0.2, 0.1, -0.2}, {0.1, -box.y, -0.2}, {-box.x, -box.y, -0.2}, {box.x, -box.y, -0.2}};
    for (const SPoint& middle : middles) {
        scene.layout =
            MakeLayout(box, direction, false, {}, c_size, 1, font, SFraming{.zoom = 25, .fontHeight = 12});
        BringToMiddle(scene.layout.view, middle);
        const CMeshBuffers* const mesh = closeUp.Update(*viewed, box, scene.layout.view, c_mostPoints);
        ASSERT_TRUE(mesh);
        EXPECT_TRUE(closeUp.IsNew());
        EXPECT_LT(mesh->GetMesh().vertices.size(), 250'000u);
        const auto expected = pictureOf(finest);
        EXPECT_LT(countDifferent(pictureOf(*mesh), expected), 40) << middle.x;
        // What is made for some more than is seen stays while that is enough.
        scene.layout.view.modelView[12] += 1e-3;
        EXPECT_EQ(closeUp.Update(*viewed, box, scene.layout.view, c_mostPoints), mesh);
        EXPECT_FALSE(closeUp.IsNew());
    }
    // The block as a whole, and what has all of its points already, need none.
    scene.layout = MakeLayout(box, direction, false, {}, c_size, 1, font, SFraming{.fontHeight = 12});
    EXPECT_FALSE(closeUp.Update(*viewed, box, scene.layout.view, c_mostPoints));
    scene.layout =
        MakeLayout(box, direction, false, {}, c_size, 1, font, SFraming{.zoom = 25, .fontHeight = 12});
    EXPECT_FALSE(closeUp.Update(*MakeSurface(300, 200), box, scene.layout.view, c_mostPoints));
    // Fewer points for pictures that move: those of the surface with half of them, and means of four.
    const CMeshBuffers* const coarse = closeUp.Update(*viewed, box, scene.layout.view, 24);
    ASSERT_TRUE(coarse);
    EXPECT_LE(coarse->GetMesh().vertices.size(), 24u * 24);
}
