#include "analysis/areal/ArealParameters.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/form/Levelling.h"
#include "formats/SurfaceReader.h"
#include "TestFolders.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>
#include <filesystem>
#include <random>

using namespace CommonUI::Analysis;

TEST(ArealParameters, Sine)
{
    // 2 periods, amplitude 1 µm, about a height of 5 mm; the material ratio curve is A cos(pi x)
    const double k = 2 * c_pi / 20000;
    const SSurface surface =
        MakeSurface(40000, 3, [&](double x, double) { return 5e-3 + 1e-6 * std::sin(k * (x + 0.5)); });
    const auto values = ComputeAreal(surface);
    const auto expect = [&](const char* key, double value, double tolerance) {
        EXPECT_NEAR(Get(values, key), value, tolerance * value) << key;
    };
    const auto cap = [](double x) { return 1e-6 * (std::sin(x * c_pi) / c_pi - x * std::cos(x * c_pi)); };
    expect("Sa", 2e-6 / c_pi, 1e-8);
    expect("Sq", 1e-6 / std::sqrt(2), 1e-8);
    expect("Sku", 1.5, 1e-8);
    expect("Sz", 2e-6, 1e-7);
    expect("Smean", 5e-3, 1e-14);
    expect("Sdq", k / std::sqrt(2), 1e-4);
    expect("Sdr", 100 * k * k / 4, 1e-4); // half the mean square slope
    expect("Sxp", 1e-6 * std::cos(0.025 * c_pi), 2e-4);
    expect("Sdc10_50", 1e-6 * std::cos(0.1 * c_pi), 2e-4);
    expect("Vmp", cap(0.1), 2e-3);
    expect("Vvv", cap(0.2), 2e-3);
    EXPECT_NEAR(Get(values, "Ssk"), 0, 1e-8);
}

TEST(ArealParameters, Plane)
{
    // z = 0.3 x + 0.4 y: a gradient of 0.5 in every point
    SSurface surface = MakeSurface(30, 20, [](double x, double y) { return 3e-7 * x + 8e-7 * y; });
    surface.dy = 2e-6;
    ExpectValues(ComputeAreal(surface), {{"Sdq", 0.5},
                                         {"Sdr", 100 * (std::sqrt(1.25) - 1)},
                                         {"S2A", 29e-6 * 38e-6},
                                         {"S3A", 29e-6 * 38e-6 * std::sqrt(1.25)},
                                         {"Smin", 0},
                                         {"Smax", 29 * 3e-7 + 19 * 8e-7},
                                         {"Count", 600}});
}

TEST(ArealParameters, OneCellWithARaisedCorner)
{
    // Of its triangles, by the one diagonal and by the other, one is level, two slope by 1 and one by √2.
    const SSurface cell{.points = 2, .lines = 2, .dx = 1, .dy = 1, .heights = {0, 0, 0, 1}};
    const double area = (1 + 2 * std::sqrt(2) + std::sqrt(3)) / 4;
    ExpectValues(ComputeAreal(cell), {{"Sdq", 1}, {"S3A", area}});
}

TEST(ArealParameters, TinySlopeKeepsItsArea)
{
    const SSurface surface = MakeSurface(30, 20, [](double x, double) { return 1e-14 * x; }); // slope 1e-8
    EXPECT_NEAR(Get(ComputeAreal(surface), "Sdr"), 100 * 0.5e-16, 1e-22);
}

TEST(ArealParameters, HeightsOfAnyMagnitude)
{
    for (const double height : {1e-320, 1e-300, 1e-100, 1e100}) {
        const SHeightParameters values =
            ComputeHeightParameters(std::vector<double>{-height, height, height, -height});
        EXPECT_NEAR(values.average / height, 1, 1e-3) << height;
        EXPECT_NEAR(values.rms / height, 1, 1e-3) << height;
        EXPECT_DOUBLE_EQ(values.kurtosis, 1) << height;
    }
}

TEST(ArealParameters, AreaAndGradientAreOfOneField)
{
    // What a facet has in excess is at most half its squared gradient: exactly, rounding included.
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0, 1);
    for (const double height : {1e-15, 1e-9, 1e-6, 1e-3, 1.0}) {
        const auto values =
            ComputeAreal(MakeSurface(64, 48, [&](double, double) { return height * noise(random); }));
        const double sdq = Get(values, "Sdq");
        EXPECT_LE(Get(values, "Sdr") / 100, sdq * sdq / 2 * (1 + 1e-15)) << height;
        // Differences of neighbours have twice the variance.
        EXPECT_NEAR(sdq, 2 * height / 1e-6, 0.05 * 2 * height / 1e-6);
    }
}

TEST(ArealParameters, StraightMaterialRatioCurve)
{
    for (const std::size_t points : {101u, 104u, 1003u}) {
        const double range = static_cast<double>(points - 1) * 1e-6;
        // 37 has no factor in common with the numbers of points: every height occurs once, in no order
        const SSurface surface = MakeSurface(points, 1, [&](double x, double) {
            return 1e-6 * std::fmod(37 * x, static_cast<double>(points));
        });
        const auto values = ComputeAreal(surface);
        ExpectValues(values, {{"Sk", range}, {"Sxp", 0.475 * range}, {"Sdc0_5", 0.05 * range}});
        ExpectValues(
            values,
            {{"Vmp", 0.005 * range}, {"Vmc", 0.315 * range}, {"Vvc", 0.385 * range}, {"Vvv", 0.02 * range}});
        EXPECT_NEAR(Get(values, "Spk"), 0, 1e-12);
        EXPECT_NEAR(Get(values, "Svk"), 0, 1e-12);
    }
}

TEST(ArealParameters, CoreWithPeaksAndDales)
{
    // nm: falls by 40 to 10 %, by 8 to 80 % and by 60 to the end. The line through the core falls by 80/7.
    const SSurface surface = MakeSurface(1001, 1, [](double x, double) {
        return 1e-9 * (x < 100 ? 48 - 0.4 * x : x <= 800 ? 8 - 8 * (x - 100) / 700 : -0.3 * (x - 800));
    });
    const auto values = ComputeAreal(surface);
    const double top = 8 + 8.0 / 7; // nm, of the line at 0 %
    const double bottom = -16.0 / 7;
    const double peakEnd = (48 - top) / 0.4 / 1000;
    const double daleBegin = 0.8 - bottom / 0.3 / 1000;
    ExpectValues(values, {{"Sk", (top - bottom) * 1e-9},
                          {"Smr1", 100 * peakEnd},
                          {"Smr2", 100 * daleBegin},
                          {"Spk", (48 - top) * 1e-9}, // triangles as they are
                          {"Svk", (60 + bottom) * 1e-9}});
}

TEST(ArealParameters, TwoLevels)
{
    // One point in four is 3 nm high.
    const SSurface surface =
        MakeSurface(40, 10, [](double x, double) { return std::fmod(x, 4) < 1 ? 3e-9 : 0; });
    ExpectValues(ComputeAreal(surface), {{"Sa", 1.125e-9},
                                         {"Sq", std::sqrt(27.0 / 16) * 1e-9},
                                         {"Ssk", 2 / std::sqrt(3)},
                                         {"Sku", 7.0 / 3},
                                         {"Sp", 2.25e-9},
                                         {"Sv", 0.75e-9},
                                         {"Sk", 0},
                                         {"Sdc10_50", 3e-9}});
}

TEST(ArealParameters, MissingPointsAreLeftOut)
{
    const auto ramp = [](double x, double y) { return 3e-7 * x + 4e-7 * y; };
    SSurface surface = MakeSurface(30, 20, ramp);
    surface.heights[0] = surface.heights[5 * 30 + 7] = c_missing;
    ExpectValues(ComputeAreal(surface), {{"Count", 598},
                                         {"Sdq", 0.5},
                                         {"Sdr", 100 * (std::sqrt(1.25) - 1)},
                                         {"S2A", (29 * 19 - 5) * 1e-12},
                                         {"Smin", 3e-7}});
    Level(surface, ELevelling::Plane);
    ExpectValues(ComputeAreal(surface), {{"Sq", 0}, {"Ssk", c_undefined}, {"Count", 598}});
    surface.heights.assign(600, c_missing);
    Level(surface, ELevelling::Plane);
    EXPECT_THROW(ComputeAreal(surface), ENoPoints);
}

TEST(ArealParameters, MeasuredSurface)
{
    const std::filesystem::path path = COMMONUI_SHARED_DATA "/afm-height-256.txt";
    if (!std::filesystem::exists(path))
        GTEST_SKIP() << "the measured surface is not here";
    SSurface surface = CommonUI::Formats::ReadSurface(path);
    EXPECT_EQ(surface.channel, "ZSensor");
    Level(surface, ELevelling::Mean);
    EXPECT_NEAR(Get(ComputeAreal(surface), "Sq"), 3.5222918750e-8, 0.5e-18);
}
