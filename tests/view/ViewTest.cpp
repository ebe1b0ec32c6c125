#include "view/View.h"

#include "gl/GLUtils.h"
#include "programs/offscreen/OffscreenContext.h"
#include "tests/view/Looks.h"
#include "view/detail/OpenGL.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

using namespace SurfaceView;

namespace
{

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
        const SView twice = CenterView(c_box, look.direction, look.orthographic, viewport, 2);
        for (const SPoint& corner : CornersOf(c_box)) {
            const SPixel pixel = view.Project(corner);
            reach = std::max(reach, std::hypot(pixel.x - 500, pixel.y - 250) / 200);
            EXPECT_NEAR(twice.Project(corner).y - 250, 2 * (pixel.y - 250), 1e-6);
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
