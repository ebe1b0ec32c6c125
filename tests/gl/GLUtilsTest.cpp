#include "gl/GLUtils.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"
#include "tests/Script.h"

using namespace CommonUI;

namespace
{

using GLUtils = CContextTest;

} // namespace

TEST_F(GLUtils, ProjectionsFitTheirViewport)
{
    glViewport(30, 40, 120, 60);
    ExpectScript("gl-projections.txt", [](const SCommand& command) {
        const bool orthographic = command.verb == "orthographic";
        const auto angle = command.Get<double>(), zNear = command.Get<double>(1),
                   zFar = command.Get<double>(2);
        glLoadIdentity();
        glScaled(2, 2, 2);
        if (command.words.size() == 3)
            SetupProjectionMatrix(orthographic, angle, zNear, zFar);
        else
            SetupProjectionMatrix(orthographic, angle, zNear, zFar,
                                  {command.Get(3), command.Get(4), command.Get(5), command.Get(6)});
        return ToText(GetDoubles<16>(GL_MODELVIEW_MATRIX));
    });
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
