#include "programs/surface_view/Layout.h"

#include "gl/GLUtils.h"
#include "programs/offscreen/OffscreenContext.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace SurfaceView;

namespace
{

const SBox c_box{.x = 1, .y = 0.75, .z = 0.25, .heights = {-1.8e-6, 0.7e-6}, .width = 64e-6, .depth = 48e-6};

struct SLook {
    SDirection direction;
    bool orthographic;
};

const SLook c_looks[]{{{30, 35}, false},  {{30, 35}, true},  {{0, 35}, false},
                      {{200, 60}, false}, {{30, 90}, false}, {{0, 90}, true},
                      {{-40, 0}, true},   {{90, 0}, false},  {{135, 20}, true}};

std::vector<SPoint> CornersOf(const SBox& box)
{
    std::vector<SPoint> corners;
    for (const double x : {-box.x, box.x}) {
        for (const double y : {-box.y, box.y}) {
            for (const double z : {-box.z, box.z})
                corners.push_back({x, y, z});
        }
    }
    return corners;
}

} // namespace

TEST(View, BlockThatTurnsFitsFromEverySide)
{
    const CommonUI::SRect viewport{100, 50, 900, 450};
    double reach = 0; // of the corners from the middle, in half heights
    for (const SLook& look : c_looks) {
        const SView view = CenterView(c_box, look.direction, look.orthographic, viewport, 1);
        const SView near = CenterView(c_box, look.direction, look.orthographic, viewport, 2);
        for (const SPoint& corner : CornersOf(c_box)) {
            const SPixel pixel = view.Project(corner);
            reach = std::max(reach, std::hypot(pixel.x - 500, pixel.y - 250) / 200);
            EXPECT_NEAR(near.Project(corner).y - 250, 2 * (pixel.y - 250), 1e-6);
        }
    }
    EXPECT_LT(reach, 1);
    EXPECT_GT(reach, 0.95);
}

TEST(View, BlockFillsTheViewport)
{
    for (const CommonUI::SRect viewport :
         {CommonUI::SRect{100, 50, 900, 450}, CommonUI::SRect{100, 50, 400, 650}}) {
        for (const SLook& look : c_looks) {
            const SView view = FitView(c_box, look.direction, look.orthographic, viewport);
            double left = 1e9, right = -1e9, low = 1e9, high = -1e9;
            for (const SPoint& corner : CornersOf(c_box)) {
                const SPixel pixel = view.Project(corner);
                left = std::min(left, pixel.x - viewport.left);
                right = std::max(right, pixel.x - viewport.left);
                low = std::min(low, pixel.y - viewport.top);
                high = std::max(high, pixel.y - viewport.top);
            }
            const double width = viewport.right - viewport.left;
            const double height = viewport.bottom - viewport.top;
            EXPECT_GE(left, 0);
            EXPECT_LE(right, width);
            EXPECT_GE(low, 0);
            EXPECT_LE(high, height);
            EXPECT_NEAR(std::max((right - left) / width, (high - low) / height), 0.99, 0.005);
            EXPECT_NEAR(left + right, width, 0.1); // in the middle
            EXPECT_NEAR(low + high, height, 0.1);
        }
    }
}

TEST(View, OpenGLDrawsWhereProjectSays)
{
    std::string reason;
    const auto context = Offscreen::CContext::Make(300, 200, reason);
    ASSERT_TRUE(context) << reason;
    for (const SLook& look : c_looks) {
        const SView view = FitView(c_box, look.direction, look.orthographic, {20, 30, 280, 190});
        glViewport(20, 30, 260, 160);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        CommonUI::SetupProjectionMatrix(view.orthographic, view.fieldOfView, view.nearPlane, view.farPlane,
                                        view.viewport);
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixd(view.modelView.data());
        for (const SPoint& corner : CornersOf(c_box)) {
            glRasterPos3d(corner.x, corner.y, corner.z);
            GLboolean visible = GL_FALSE;
            glGetBooleanv(GL_CURRENT_RASTER_POSITION_VALID, &visible);
            EXPECT_TRUE(visible);
            double position[4];
            glGetDoublev(GL_CURRENT_RASTER_POSITION, position);
            EXPECT_NEAR(position[0], view.Project(corner).x, 0.01);
            EXPECT_NEAR(position[1], view.Project(corner).y, 0.01);
        }
    }
}

TEST(Layout, NothingOverlapsAndAllIsInThePicture)
{
    const CFont font;
    const SPictureText text{.title = u"a surface with a name that is longer than a small picture is wide.sdf",
                            .subtitle = u"64 µm × 48 µm, heights × 6.4"};
    for (const CommonUI::SSize size : {CommonUI::SSize{2700, 1800}, {900, 600}, {900, 1800}, {300, 300}}) {
        for (const SLook& look : c_looks) {
            const SLayout layout = MakeLayout(c_box, look.direction, look.orthographic, text, size, 3, font);
            EXPECT_GE(layout.labels.size(), 4u); // two lines, the name of the legend and a mark
            std::vector<CommonUI::SRect> places{layout.legend};
            for (const SLabel& label : layout.labels)
                places.push_back(label.place);
            for (std::size_t i = 0; i < places.size(); ++i) {
                EXPECT_GE(places[i].left, 0);
                EXPECT_GE(places[i].top, 0);
                EXPECT_LE(places[i].right, size.cx);
                EXPECT_LE(places[i].bottom, size.cy);
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_TRUE(places[i].left >= places[j].right || places[j].left >= places[i].right ||
                                places[i].top >= places[j].bottom || places[j].top >= places[i].bottom)
                        << i << " " << j << " of " << size.cx << " x " << size.cy;
            }
        }
    }
}

TEST(Layout, EveryAxisThatIsSeenHasMarksAndAName)
{
    const CFont font;
    for (const SLook& look : {c_looks[0], c_looks[1], c_looks[3], c_looks[8]}) {
        const SLayout layout = MakeLayout(c_box, look.direction, look.orthographic, {}, {900, 600}, 1, font);
        for (const SAxis& axis : layout.axes)
            EXPECT_GE(axis.ticks.size(), 2u) << look.direction.azimuth;
        for (const char16_t* name : {u"x / µm", u"y / µm"})
            EXPECT_EQ(std::ranges::count(layout.labels, name, &SLabel::text), 1) << look.direction.azimuth;
    }
}

TEST(Layout, TitleOfAnyLengthIsCutToTheWidthOfThePicture)
{
    const CFont font;
    for (const std::size_t length : {200, 500'000}) { // the second takes minutes when cut letter by letter
        const SPictureText text{.title = CommonUI::CStr(length, u'i')};
        const SLabel title = MakeLayout(c_box, {30, 35}, false, text, {300, 300}, 1, font).labels[0];
        const CommonUI::CStr wider = CommonUI::CStr(title.text.GetLength(), u'i') + u"…";
        EXPECT_EQ(title.text.Right(2), u"i…");
        EXPECT_LE(title.place.right, 300 - 9);
        EXPECT_GT(title.place.left + font.Measure(wider, title.height).cx, 300 - 9);
    }
}

TEST(Font, TextHasTheSizeThatWasMeasured)
{
    const CFont font;
    const SPixels pixels = font.Draw(u"−1.5 µm \xD83D\xDE00", 20, {1, 2, 3});
    EXPECT_EQ(pixels.size, font.Measure(u"−1.5 µm \xD83D\xDE00", 20));
    EXPECT_EQ(pixels.bytes.size(), static_cast<std::size_t>(pixels.size.cx * pixels.size.cy * 4));
    int covered = 0;
    for (std::size_t i = 3; i < pixels.bytes.size(); i += 4)
        covered += pixels.bytes[i] == 255;
    EXPECT_GT(covered, 20);
    EXPECT_EQ(font.Measure(u"", 20).cx, 0);
}
