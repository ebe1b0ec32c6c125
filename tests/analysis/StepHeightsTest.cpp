#include "analysis/calibration/StepHeights.h"

#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

// Profiles of grooves (or ridges of a negative depth), each between two places, on a tilted surface.
struct SGroove {
    double from, to, depth;
};

SSurface MakeGrooves(std::size_t points, std::size_t lines, const std::vector<SGroove>& grooves, double tilt,
                     double scale)
{
    SSurface surface = MakeSurface(points, lines, [&](double x, double y) {
        double z = tilt * (x + 0.5 * y);
        for (const SGroove& groove : grooves)
            if (x > groove.from && x < groove.to)
                z -= groove.depth;
        return scale * 1e-9 * z;
    });
    surface.dx *= scale;
    surface.dy *= scale;
    return surface;
}

void Transpose(SSurface& surface)
{
    SSurface turned = surface;
    std::swap(turned.points, turned.lines);
    std::swap(turned.dx, turned.dy);
    for (std::size_t i = 0; i < surface.heights.size(); ++i)
        turned.heights[i % surface.points * surface.lines + i / surface.points] = surface.heights[i];
    surface = turned;
}

void ExpectAll(const SSteps& steps, std::size_t count, double height)
{
    EXPECT_EQ(steps.reason, "");
    const std::vector<double> heights = steps.GetHeights();
    EXPECT_EQ(heights.size(), count);
    for (const double step : heights)
        EXPECT_NEAR(step, height, 1e-9 * height);
}

} // namespace

TEST(StepHeights, OfTiltedSurfaces)
{
    struct SCase {
        std::vector<SGroove> grooves;
        std::size_t count; // in each line
        bool areGrooves;
    };
    const SCase cases[] = {
        {{{80.5, 120.5, 50}}, 1, true},
        {{{80.5, 120.5, -50}}, 1, false},
        {{{20.5, 50.5, 50}, {90.5, 120.5, 50}, {150.5, 170.5, 50}}, 3, true},
        {{{0.5, 20.5, 50}, {40.5, 60.5, 50}, {80.5, 100.5, 50}, {120.5, 140.5, 50}, {160.5, 180.5, 50}},
         4,
         true},
        {{{100.5, 300, 50}}, 1, true}, // one edge
    };
    for (const SCase& row : cases)
        for (const double scale : {0.01, 1.0, 100.0})
            for (const double tilt : {0.0, 0.3}) {
                SSurface surface = MakeGrooves(200, 20, row.grooves, tilt, scale);
                const SSteps steps = MeasureSteps(surface);
                SCOPED_TRACE(testing::Message() << row.grooves[0].from << " " << tilt << " " << scale);
                ExpectAll(steps, row.count * 20, 50e-9 * scale);
                if (row.grooves[0].to < 200) {
                    EXPECT_EQ(steps.areGrooves, row.areGrooves);
                }
                Transpose(surface);
                const SSteps turned = MeasureSteps(surface);
                ExpectAll(turned, row.count * 20, 50e-9 * scale);
                EXPECT_TRUE(turned.isAlongY);
                ExpectAll(MeasureSteps(MakeGrooves(200, 1, row.grooves, tilt, scale)), row.count,
                          50e-9 * scale);
            }
}

// Of a large surface the plane comes from fewer points.
TEST(StepHeights, OfLargeSurfaces)
{
    const SSurface surface = MakeGrooves(1500, 40, {{400.5, 600.5, 50}, {900.5, 1100.5, 50}}, 0.8, 1);
    ExpectAll(MeasureSteps(surface), 80, 50e-9);
}

// Rounded corners lie in the thirds that do not count; what is beyond W from the edges does not count either.
TEST(StepHeights, TakesTheThirds)
{
    SSurface surface = MakeGrooves(200, 1, {{80.5, 110.5, 50}}, 0, 1);
    for (const std::size_t at : {71u, 80u, 82u, 89u, 101u, 110u, 112u, 120u})
        surface.heights[at] += 5e-9;
    for (const std::size_t at : {5u, 49u, 142u, 190u})
        surface.heights[at] += 5e-9;
    ExpectAll(MeasureSteps(surface), 1, 50e-9);
    surface.heights[95] += 5.5e-9; // one of the ten in the middle
    EXPECT_NEAR(MeasureSteps(surface).GetHeights().at(0), 49.45e-9, 0.02e-9);
}

TEST(StepHeights, NoStepsWithoutTwoLevels)
{
    std::mt19937 random(5);
    EXPECT_FALSE(MeasureSteps(MakeSurface(64, 64, [&](double, double) {
                     return static_cast<double>(random()) / 4294967296.0;
                 })).reason.empty());
    EXPECT_FALSE(
        MeasureSteps(MakeSurface(64, 64, [](double x, double) { return std::sin(x / 5); })).reason.empty());
    EXPECT_FALSE(MeasureSteps(MakeSurface(64, 1, [](double, double) { return 1.0; })).reason.empty());
    EXPECT_FALSE(MeasureSteps(MakeSurface(4, 4, [](double, double) { return c_missing; })).reason.empty());
    EXPECT_FALSE(
        MeasureSteps(MakeSurface(5, 1, [](double x, double) { return x == 2 ? 1.0 : 0; })).reason.empty());
}

TEST(StepHeights, OfNoisySurfaces)
{
    std::mt19937 random(7);
    std::normal_distribution<double> noise(0, 4e-9);
    SSurface surface = MakeGrooves(300, 100, {{80.5, 120.5, 50}, {200.5, 240.5, 50}}, 0.1, 1);
    for (double& z : surface.heights)
        z += noise(random);
    const std::vector<double> heights = MeasureSteps(surface).GetHeights();
    EXPECT_EQ(heights.size(), 200u);
    double sum = 0;
    for (const double height : heights)
        sum += height / 200;
    EXPECT_NEAR(sum, 50e-9, 0.4e-9);
}
