#include "analysis/tip/Morphology.h"
#include "analysis/tip/TipShape.h"
#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

// A sphere with its apex at 0, and a cone from where it touches it on; all in points of 1 µm.
double GetTip(double r, double radius, double fullAngle)
{
    const double slope = 1 / std::tan(fullAngle / 2 * c_pi / 180);
    const double touch = radius * slope / std::hypot(1, slope); // where the sphere is as steep
    const auto sphere = [&](double at) { return radius - std::sqrt(radius * radius - at * at); };
    return -1e-6 * (r < touch ? sphere(r) : sphere(touch) + slope * (r - touch));
}

SSurface MakeTip(std::size_t size, double radius, double fullAngle, bool isProfile = false)
{
    const double middle = static_cast<double>(size / 2);
    return MakeSurface(size, isProfile ? 1 : size, [&](double x, double y) {
        return GetTip(std::hypot(x - middle, isProfile ? 0 : y - middle), radius, fullAngle);
    });
}

// Spikes sharper than any tip, far apart, of several heights.
SSurface MakeSpikes(std::size_t points, std::size_t lines)
{
    return MakeSurface(points, lines, [&](double x, double y) {
        const bool isSpike = std::fmod(x, 50) == 25 && (lines == 1 || std::fmod(y, 50) == 25);
        return isSpike ? 40e-6 + 1e-7 * x : 0;
    });
}

void Scale(SSurface& surface, double factor)
{
    surface.dx *= factor;
    surface.dy *= factor;
    for (double& z : surface.heights)
        z *= factor;
}

} // namespace

TEST(Tip, MeasuresKnownShapes)
{
    for (const double scale : {0.01, 1.0, 100.0}) {
        SSurface shape = MakeTip(41, 60, 1);
        Scale(shape, scale);
        const double depth = 3e-6 * scale;
        const STip sphere = MeasureTip(shape, depth);
        EXPECT_NEAR(sphere.radius, 60e-6 * scale, 1e-9 * scale);
        EXPECT_NEAR(sphere.height, depth, 1e-12 * scale);
        const double half = std::sqrt(60.0 * 60 - 57.0 * 57) * 1e-6 * scale;
        EXPECT_NEAR(sphere.width, 2 * half, 0.01 * half);
        EXPECT_NEAR(sphere.area, c_pi * half * half, 0.01 * sphere.area);

        SSurface cone = MakeTip(41, 0.01, 70);
        Scale(cone, scale);
        EXPECT_NEAR(MeasureTip(cone, 20e-6 * scale).coneAngle, 70, 0.05);
        // The border is 20 points from the axis: the cone is not known further down.
        const double closed = 20e-6 * scale / std::tan(35 * c_pi / 180);
        EXPECT_NEAR(MeasureTip(cone, 1).height, closed, 0.01 * closed);
    }
    EXPECT_FALSE(MeasureTip(MakeSurface(5, 5, [](double, double) { return 0.0; }), 1).reason.empty());
}

TEST(Tip, IsFoundInTheImageOfSpikes)
{
    for (const bool isProfile : {false, true})
        for (const double scale : {0.01, 1.0, 100.0}) {
            SSurface tip = MakeTip(21, 8, 60, isProfile);
            tip.heights[3] -= 1e-6; // so that one that is turned over would be seen
            SSurface image = Dilate(MakeSpikes(200, isProfile ? 1 : 150), tip);
            Scale(image, scale);
            Scale(tip, scale);
            const STip found = EstimateTip(image, {.width = 20e-6 * scale});
            ASSERT_EQ(found.shape.heights.size(), tip.heights.size());
            for (std::size_t i = 0; i < tip.heights.size(); ++i)
                EXPECT_NEAR(found.shape.heights[i], tip.heights[i], 1e-9 * scale) << i;
            EXPECT_EQ(std::isnan(found.area), isProfile);
            const STip deep = EstimateTip(image, {.depth = 2e-6 * scale});
            EXPECT_NEAR(deep.height, 2e-6 * scale, 1e-9 * scale);
            EXPECT_NEAR(deep.radius, 8e-6 * scale, 0.2e-6 * scale);
        }
}

// Whatever the surface, no part of the tip is cut off.
TEST(Tip, BoundIsNeverBelowTheTip)
{
    const SSurface tip = MakeTip(17, 10, 80);
    for (const unsigned seed : {1u, 2u, 3u}) {
        std::mt19937 random(seed);
        const SSurface surface = MakeSurface(120, 110, [&](double x, double y) {
            return 2e-6 * std::sin(x / 3) * std::cos(y / 4) +
                   3e-6 * static_cast<double>(random()) / 4294967296.0;
        });
        const SSurface image = Dilate(surface, tip);
        const STip found = EstimateTip(image, {.width = 16e-6});
        ASSERT_EQ(found.shape.heights.size(), tip.heights.size());
        for (std::size_t i = 0; i < tip.heights.size(); ++i)
            EXPECT_GE(found.shape.heights[i], tip.heights[i] - 1e-15) << i;
        // The eroded image lies between the surface and the image.
        const SSurface eroded = Erode(image, tip);
        for (std::size_t i = 0; i < surface.heights.size(); ++i)
            ASSERT_TRUE(eroded.heights[i] >= surface.heights[i] - 1e-15 &&
                        eroded.heights[i] <= image.heights[i]);
        EXPECT_NEAR(Dilate(eroded, tip).heights[60 * 120 + 60], image.heights[60 * 120 + 60], 1e-15);
    }
}

TEST(Tip, SpheresUnderATip)
{
    // The image of a sphere of 20 under a spherical tip of 10 is one of 30, of which the inner part is seen.
    const SSurface sphere = MakeSurface(81, 81, [](double x, double y) {
        const double r = std::hypot(x - 40, y - 40);
        return r < 15 ? 1e-6 * (std::sqrt(20 * 20 - r * r) - 20) : -20e-6;
    });
    const SSurface image = Dilate(sphere, MakeTip(17, 10, 30));
    for (std::size_t x = 36; x <= 44; ++x) {
        const double r = std::fabs(static_cast<double>(x) - 40);
        EXPECT_NEAR(image.heights[40 * 81 + x], 1e-6 * (std::sqrt(30 * 30 - r * r) - 30), 0.01e-6);
    }
    const SSurface missing = MakeSurface(60, 60, [](double, double) { return c_missing; });
    EXPECT_FALSE(EstimateTip(missing, {}).reason.empty());
    EXPECT_FALSE(
        EstimateTip(MakeSurface(60, 60, [](double x, double) { return 1e-9 * x; }), {}).reason.empty());
    EXPECT_FALSE(EstimateTip(MakeSurface(4, 4, [](double x, double) { return x; }), {}).reason.empty());
    EXPECT_FALSE(EstimateTip(sphere, {.width = 1}).reason.empty());
}
