#include "analysis/calibration/Linearity.h"

#include "analysis/form/Tilt.h"
#include "tests/analysis/TestSurfaces.h"

using namespace CommonUI::Analysis;

TEST(Linearity, OfResponsesToAReference)
{
    for (const double scale : {0.01, 1.0, 100.0})
        for (const std::size_t lines : {std::size_t{1}, std::size_t{9}}) {
            const SSurface reference =
                MakeSurface(101, lines, [&](double x, double) { return scale * 1e-8 * (x - 50); });
            SSurface surface = reference;
            // x² - mean is at right angles to 1 and x: the line is that of the linear part.
            for (double& z : surface.heights)
                z = 5e-3 + 1.02 * z + 0.05 * z * z / (scale * 1e-8 * 50);
            const SLinearity linearity = MeasureLinearity(surface, reference);
            const double unit = scale * 1e-8 * 50 * 0.05; // at the ends of the range
            EXPECT_NEAR(linearity.amplification, 1.02, 1e-6);
            EXPECT_NEAR(linearity.deviation, unit * (1 - 0.34), 1e-6 * unit); // Σ(x/50)² / 101 is 0.34
            EXPECT_NEAR(linearity.share, 100 * unit * 0.66 / (2 * 1.02 * unit / 0.05), 1e-4);
            double squares = 0;
            for (int x = -50; x <= 50; ++x)
                squares += std::pow(x * x / 2500.0 - 0.34, 2) / 101;
            EXPECT_NEAR(linearity.deviationRms, unit * std::sqrt(squares), 1e-6 * unit);
        }
}

TEST(Linearity, OfAnInclinedPlane)
{
    const SSurface surface = MakeSurface(
        101, 5, [](double x, double y) { return 1e-8 * (x - 50) + 3e-9 * y + 1e-10 * (x - 50) * (x - 50); });
    const SLinearity linearity = MeasureLinearity(surface);
    EXPECT_NEAR(linearity.deviation, 1e-10 * 1650, 1e-15);
    EXPECT_NEAR(linearity.share, 100 * 1650e-10 / (1e-6 + 12e-9), 0.2 * linearity.share);
    EXPECT_TRUE(std::isnan(linearity.amplification));
    EXPECT_FALSE(linearity.amplificationReason.empty());
    EXPECT_FALSE(
        MeasureLinearity(surface, MakeSurface(100, 5, [](double x, double) { return x; })).reason.empty());
    EXPECT_FALSE(
        MeasureLinearity(surface, MakeSurface(101, 5, [](double, double) { return 1.0; })).reason.empty());
    EXPECT_FALSE(
        MeasureLinearity(MakeSurface(3, 1, [](double, double) { return c_missing; })).reason.empty());
}

TEST(Tilt, OfKnownPlanes)
{
    struct SCase {
        double x, y, direction;
    };
    for (const SCase& row :
         {SCase{0.01, 0, 0}, {0, -0.02, -90}, {-1, 1, 135}, {3, 4, std::atan2(4, 3) * 180 / c_pi}})
        for (const double scale : {0.01, 1.0, 100.0}) {
            // A chessboard of 1 nm, which has no slope over even numbers of points.
            SSurface surface = MakeSurface(16, 12, [&](double x, double y) {
                const double check = std::fmod(x + y, 2) == 0 ? 1e-9 : -1e-9;
                return scale * (1e-6 * (row.x * x + row.y * 2 * y) + check);
            });
            surface.dx *= scale;
            surface.dy *= 2 * scale;
            const STilt tilt = MeasureTilt(surface);
            const double degrees = 180 / c_pi;
            EXPECT_NEAR(tilt.x, std::atan(row.x) * degrees, 1e-3);
            EXPECT_NEAR(tilt.y, std::atan(row.y) * degrees, 1e-3);
            EXPECT_NEAR(tilt.total, std::atan(std::hypot(row.x, row.y)) * degrees, 1e-3);
            EXPECT_NEAR(tilt.direction, row.direction, 0.1);
            EXPECT_NEAR(tilt.residual, 1e-9 * scale, 1e-11 * scale);
        }
    const STilt flat = MeasureTilt(MakeSurface(4, 4, [](double, double) { return 7.0; }));
    EXPECT_EQ(flat.total, 0);
    EXPECT_EQ(flat.residual, 0);
    EXPECT_TRUE(std::isnan(flat.direction));
    const STilt profile = MeasureTilt(MakeSurface(4, 1, [](double x, double) { return 1e-6 * x; }));
    EXPECT_NEAR(profile.x, 45, 1e-9);
    EXPECT_TRUE(std::isnan(profile.y));
    EXPECT_FALSE(MeasureTilt(MakeSurface(2, 2, [](double x, double) {
                     return x > 0 ? c_missing : 0;
                 })).reason.empty());
}
