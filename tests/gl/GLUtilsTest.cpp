#include "gl/GLUtils.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"

#include <cmath>
#include <numbers>

using namespace CommonUI;

namespace
{

using GLUtils = CContextTest;

// The numbers that x and y are multiplied with.
struct SFrustum {
    double x, y;
};

SFrustum Project(bool orthographic, double angle, const SRect& viewport)
{
    glLoadIdentity();
    SetupProjectionMatrix(orthographic, angle, 2, 10, viewport);
    const auto matrix = GetDoubles<16>(GL_MODELVIEW_MATRIX);
    return {matrix[0], matrix[5]};
}

double TangentOfHalf(double degrees)
{
    return std::tan(degrees * std::numbers::pi / 360);
}

} // namespace

TEST_F(GLUtils, PerspectiveFitsTheAngleToTheShorterEdge)
{
    // the vertical angle in degrees
    const std::tuple<SRect, double, double> rows[] = {
        {{10, 20, 410, 220}, 45, 2}, {{-100, 0, 100, 400}, 79.27854, 0.5}, {{0, 5, 300, 0}, 45, 300}};
    for (const auto& [viewport, vertical, aspect] : rows) {
        const SFrustum found = Project(false, 45, viewport);
        EXPECT_NEAR(found.y, 1 / TangentOfHalf(vertical), 1e-5) << aspect;
        EXPECT_NEAR(found.x, found.y / aspect, 1e-5) << aspect;
    }
    const auto matrix = GetDoubles<16>(GL_MODELVIEW_MATRIX);
    EXPECT_NEAR(matrix[10], -(10.0 + 2.0) / (10.0 - 2.0), 1e-5);
    EXPECT_NEAR(matrix[14], -2.0 * 10.0 * 2.0 / (10.0 - 2.0), 1e-5);
}

TEST_F(GLUtils, OrthographicShowsWhatPerspectiveShowsAtTheFarPlane)
{
    constexpr SRect c_viewports[] = {{0, 0, 400, 200}, {0, 0, 200, 200}, {0, 0, 200, 400}, {0, 0, 300, 0}};
    for (const SRect& viewport : c_viewports) {
        const SFrustum perspective = Project(false, 60, viewport);
        const SFrustum box = Project(true, 60, viewport);
        EXPECT_NEAR(box.x * 10, perspective.x, 1e-5) << viewport.right << ' ' << viewport.bottom;
        EXPECT_NEAR(box.y * 10, perspective.y, 1e-5);
    }
    EXPECT_NEAR(GetDoubles<16>(GL_MODELVIEW_MATRIX)[10], -2.0 / (10.0 - 2.0), 1e-6);
}

TEST_F(GLUtils, ProjectionIsMultipliedOntoTheCurrentMatrix)
{
    glViewport(30, 40, 120, 60);
    glScaled(3, 3, 3);
    SetupProjectionMatrix(false, 90, 1, 2);
    const auto matrix = GetDoubles<16>(GL_MODELVIEW_MATRIX);
    EXPECT_NEAR(matrix[0], 3 / 2.0, 1e-5);
    EXPECT_NEAR(matrix[5], 3, 1e-5);
}

TEST_F(GLUtils, ProjectionsThatDoNotExistChangeNothing)
{
    const std::tuple<bool, double, double, SRect> rows[] = {
        {false, 45, 1, {0, 0, 3, 2}}, {true, 45, 1, {0, 0, 3, 2}},  {false, 0, 2, {0, 0, 3, 2}},
        {true, 0, 2, {0, 0, 3, 2}},   {false, 45, 2, {5, 0, 5, 0}},
    };
    for (const auto& [orthographic, angle, zFar, viewport] : rows) {
        SetupProjectionMatrix(orthographic, angle, 1, zFar, viewport);
        EXPECT_EQ(GetDoubles<16>(GL_MODELVIEW_MATRIX), c_identity);
    }
    constexpr int c_least = std::numeric_limits<int>::min();
    constexpr int c_most = std::numeric_limits<int>::max();
    const SFrustum widest = Project(true, 90, {c_least, c_least, c_most, c_most});
    EXPECT_NEAR(widest.x, widest.y, 1e-6);
}

TEST_F(GLUtils, RasterPositionIsThePixel)
{
    const std::pair<bool (*)(), std::array<double, 4>> rows[] = {
        {[] { return PixelPos4d(220, 120, 1, 2); }, {110, 60, 1, 2}},
        {[] { return PixelPos4f(31.5F, 41.75F, 0.25F, 1); }, {31.5, 41.75, 0.25, 1}},
        {[] { return PixelPos2d(140, 80); }, {140, 80, 0, 1}},
        {[] { return PixelPos2f(30.5F, 99.5F); }, {30.5, 99.5, 0, 1}},
    };
    glViewport(30, 40, 120, 60);
    glDepthRange(0.1, 0.9);
    glMatrixMode(GL_PROJECTION);
    glRotated(30, 1, 2, 3);
    const SGLState before;
    for (const auto& [set, position] : rows) {
        EXPECT_TRUE(set());
        EXPECT_EQ(SGLState(), before);
        EXPECT_EQ(GetInteger(GL_CURRENT_RASTER_POSITION_VALID), 1);
        const auto found = GetDoubles<4>(GL_CURRENT_RASTER_POSITION);
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_NEAR(found[i], position[i], 1e-3) << i;
    }
    EXPECT_EQ(TakeLines(), "");
}

TEST_F(GLUtils, FailuresOfPixelPositions)
{
    constexpr int c_ownTest = 11; // the tenth step is the last push
    const SGLState before;
    FaultyDriver::FailBefore(c_ownTest);
    EXPECT_FALSE(PixelPos2d(1, 2));
    EXPECT_TRUE(Has(TakeLines(), " (Function: PixelPos4d) (File: GLUtils)\n"));
    FaultyDriver::FailBefore(c_ownTest);
    EXPECT_FALSE(PixelPos2f(1, 2));
    EXPECT_TRUE(m_boxes.GetShown()[1].text.StartsWith(u"Operation: PixelPos4f\n"));
    EXPECT_EQ(SGLState(), before);
    glViewport(0, 0, 0, 200);
    EXPECT_FALSE(PixelPos2d(1, 2));
    EXPECT_EQ(m_boxes.GetShown().size(), 3U);
}

TEST(Transform, IgnoresTheFourthRow)
{
    const double matrix[] = {2, 3, 5, 100, 7, 11, 13, 200, 17, 19, 23, 300, 29, 31, 37, 400};
    double x = 1;
    double y = 10;
    double z = 100;
    Transform(x, y, z, matrix, x, y, z);
    EXPECT_EQ(std::tuple(x, y, z), std::tuple(2 + 70 + 1700 + 29, 3 + 110 + 1900 + 31, 5 + 130 + 2300 + 37));
}
