#include "analysis/calibration/Gratings.h"

#include "analysis/numeric/Statistics.h"
#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

// A trapezoid between 0 and 1 with a period of 1, of which `duty` is above a half.
double GetTrapezoid(double phase, double duty)
{
    constexpr double c_flank = 0.2;
    const double x = std::fabs(phase - std::round(phase)); // from the middle of the upper side
    return std::clamp((duty / 2 - x) / c_flank + 0.5, 0.0, 1.0);
}

// A grating of a pitch in points whose direction is turned by degrees.
SSurface MakeGrating(std::size_t points, std::size_t lines, double pitch, double degrees, double duty)
{
    const double turn = degrees * c_pi / 180;
    return MakeSurface(points, lines, [&](double x, double y) {
        return 1e-7 * GetTrapezoid((x * std::cos(turn) + y * std::sin(turn)) / pitch + 0.3, duty);
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

TEST(Gratings, PitchesThatAreNoMultipleOfTheSpacing)
{
    struct SCase {
        std::size_t points, lines;
        double pitch, degrees, duty;
    };
    for (const SCase& row : {SCase{512, 1, 17.3, 0, 0.5},
                             {300, 1, 41.7, 0, 0.25},
                             {256, 200, 17.3, 0, 0.5},
                             {256, 256, 12.34, 7, 0.35},
                             {256, 256, 12.34, -80, 0.5},
                             {200, 300, 21.9, 90, 0.7}})
        for (const double factor : {0.01, 1.0, 100.0}) {
            SSurface surface = MakeGrating(row.points, row.lines, row.pitch, row.degrees, row.duty);
            for (std::size_t i = 0; i < surface.heights.size(); ++i) // a tilt is no wave
                surface.heights[i] += 1e-9 * static_cast<double>(i % row.points);
            Scale(surface, factor);
            const SGrating grating = MeasureGrating(surface);
            const double pitch = row.pitch * surface.dx;
            SCOPED_TRACE(testing::Message() << row.pitch << " " << row.degrees << " " << factor);
            EXPECT_NEAR(grating.pitch, pitch, 2e-4 * pitch);
            EXPECT_NEAR(grating.centroidPitch, pitch, 2e-3 * pitch);
            EXPECT_NEAR(std::remainder(grating.direction - row.degrees, 180), 0, 0.01);
            EXPECT_EQ(grating.isAlongY, std::fabs(row.degrees) > 45);
            const std::vector<SValue> statistics = ComputeStatistics(grating.GetPitches());
            EXPECT_NEAR(Get(statistics, "Mean"), pitch, 2e-3 * pitch);
            EXPECT_LT(Get(statistics, "Sd"), 0.02 * pitch);
        }
}

// Whole lines of the grating count, what is between two that are further apart is no pitch.
TEST(Gratings, CountsPeriods)
{
    SSurface surface = MakeGrating(201, 1, 20, 0, 0.5); // upper sides around 14 + 20 n
    EXPECT_EQ(MeasureGrating(surface).GetPitches().size(), 8u);
    for (std::size_t i = 64; i < 84; ++i)
        surface.heights[i] = 0; // one is gone
    EXPECT_EQ(MeasureGrating(surface).GetPitches().size(), 6u);
    surface.heights[134] = c_missing; // one is cut
    EXPECT_EQ(MeasureGrating(surface).GetPitches().size(), 4u);
}

TEST(Gratings, OneLineThatIsTooLate)
{
    SSurface surface = MakeSurface(
        400, 1, [](double x, double) { return GetTrapezoid((x - (x > 190 && x < 210 ? 2 : 0)) / 20, 0.5); });
    const std::vector<SValue> statistics = ComputeStatistics(MeasureGrating(surface).GetPitches());
    EXPECT_NEAR(Get(statistics, "Maximum"), 22e-6, 0.1e-6);
    EXPECT_NEAR(Get(statistics, "Minimum"), 18e-6, 0.1e-6);
}

TEST(Gratings, Lattices)
{
    struct SCase {
        double pitchX, pitchY, rotation, orthogonality;
    };
    for (const SCase& row :
         {SCase{16.7, 23.1, 0, 0}, {16.7, 16.7, 3, 0}, {20.2, 18.9, -8, 1.5}, {15, 15, 0, -4}})
        for (const double factor : {0.01, 1.0, 100.0}) {
            const double u = row.rotation * c_pi / 180;
            const double v = (row.rotation + 90 + row.orthogonality) * c_pi / 180;
            const double det = std::cos(u) * std::sin(v) - std::sin(u) * std::cos(v);
            SSurface surface = MakeSurface(256, 240, [&](double x, double y) {
                const double a = (x * std::sin(v) - y * std::cos(v)) / det / row.pitchX;
                const double b = (y * std::cos(u) - x * std::sin(u)) / det / row.pitchY;
                return -1e-7 * GetTrapezoid(a, 0.5) * GetTrapezoid(b, 0.4);
            });
            Scale(surface, factor);
            const SLattice lattice = MeasureLattice(surface);
            SCOPED_TRACE(testing::Message() << row.pitchX << " " << row.rotation << " " << factor);
            EXPECT_NEAR(lattice.pitchX, row.pitchX * surface.dx, 5e-4 * row.pitchX * surface.dx);
            EXPECT_NEAR(lattice.pitchY, row.pitchY * surface.dx, 5e-4 * row.pitchY * surface.dx);
            EXPECT_NEAR(lattice.rotation, row.rotation, 0.01);
            EXPECT_NEAR(lattice.orthogonality, row.orthogonality, 0.02);
        }
    EXPECT_EQ(MeasureLattice(MakeGrating(256, 256, 12.34, 7, 0.35)).reason,
              "the grating has one direction only");
    EXPECT_EQ(MeasureLattice(MakeGrating(256, 1, 12.34, 0, 0.35)).reason,
              "a profile has no second direction");
}

TEST(Gratings, DistortionOfALattice)
{
    // Displaced to and fro along (0.6, 0.8) by four waves, which no lattice takes up.
    for (const double amplitude : {0.0, 0.5}) {
        const SSurface map = ComputeDistortion(MakeSurface(512, 300, [&](double x, double y) {
            const double shift = amplitude * std::cos(2 * c_pi * (x - 256) / 128);
            return std::sin((x - 0.6 * shift) * 2 * c_pi / 13.7) +
                   std::cos((y - 0.8 * shift) * 2 * c_pi / 11.3);
        }));
        ASSERT_EQ(map.points, 17u);
        // A square of two eighteenths has the mean under its window, of which this share is left.
        const double width = 2 / 18.0 * 4;
        const double share = std::sin(c_pi * width) / (c_pi * width) / (1 - width * width);
        for (std::size_t y = 0; y < map.lines; ++y)
            EXPECT_NEAR(map.heights[y * map.points + 8], share * amplitude * 1e-6, 0.01e-6) << y;
    }
    EXPECT_TRUE(ComputeDistortion(MakeGrating(256, 256, 12.34, 7, 0.35)).heights.empty());
}

TEST(Gratings, NoneInNoiseAndOnPlanes)
{
    std::mt19937 random(3);
    int found = 0;
    for (int i = 0; i < 50; ++i)
        found += !std::isnan(MeasureGrating(MakeSurface(64, 64, [&](double, double) {
                                 return static_cast<double>(random()) / 4294967296.0;
                             })).pitch);
    EXPECT_LE(found, 3);
    EXPECT_FALSE(MeasureGrating(MakeSurface(64, 64, [](double x, double) { return x; })).reason.empty());
    const auto twoPeriods = [](double x, double) { return std::sin(x / 5); };
    EXPECT_FALSE(MeasureGrating(MakeSurface(64, 64, twoPeriods)).reason.empty());
    EXPECT_FALSE(MeasureGrating(MakeSurface(8, 8, [](double, double) { return c_missing; })).reason.empty());
}
