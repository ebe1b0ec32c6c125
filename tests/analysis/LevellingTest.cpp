#include "analysis/form/Levelling.h"

#include "analysis/areal/ArealParameters.h"
#include "analysis/form/PlaneCorrection.h"
#include "tests/analysis/TestSurfaces.h"

#include <cmath>

using namespace CommonUI::Analysis;

TEST(Levelling, RemovesWhatItShould)
{
    const auto wave = [](double x, double y) { return 1e-9 * std::cos(x) * std::cos(y); };
    SSurface surface =
        MakeSurface(64, 48, [&](double x, double y) { return 1e-3 + 3e-7 * x - 2e-7 * y + wave(x, y); });
    SSurface expected = MakeSurface(64, 48, wave);
    surface.heights[3] = expected.heights[3] = c_missing;
    Level(surface, ELevelling::Mean);
    EXPECT_NEAR(Get(ComputeAreal(surface), "Smean"), 0, 1e-18);
    EXPECT_GT(Get(ComputeAreal(surface), "Sz"), 1e-5);
    Level(surface, ELevelling::Plane);
    Level(expected, ELevelling::Plane);
    EXPECT_TRUE(std::isnan(surface.heights[3]));
    surface.heights[3] = expected.heights[3] = 0;
    for (std::size_t i = 0; i < surface.heights.size(); ++i)
        ASSERT_NEAR(surface.heights[i], expected.heights[i], 1e-18) << i;
}

TEST(Levelling, OfPointsOnOneStraightLine)
{
    for (const auto& [alongX, alongY] : {std::pair{1.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}}) {
        SSurface surface = MakeSurface(9, 9, [&](double x, double y) {
            return (x - 4) * alongY == (y - 4) * alongX ? 1 + 0.5 * x + 0.25 * y : c_missing;
        });
        Level(surface, ELevelling::Plane);
        ExpectValues(ComputeAreal(surface), {{"Sz", 0}, {"Count", 9}});
    }
    // Where the mean is no whole number, rounding makes a narrow strip of such a line.
    for (const double steep : {3.0, 5.0, 7.0})
        for (const double points : {3.0, 6.0, 7.0}) {
            SSurface surface = MakeSurface(8, 64, [&](double x, double y) {
                return x < points && y == steep * x && x != 1 ? std::cos(x) : c_missing;
            });
            SSurface corrected = surface;
            Level(surface, ELevelling::Plane);
            Correct(corrected, {ECorrectionScope::Global, ECorrectionMethod::Polynomial, 1});
            const double level = Get(ComputeAreal(surface), "Sz");
            EXPECT_LT(level, 2.5) << steep << " " << points;
            EXPECT_NEAR(Get(ComputeAreal(corrected), "Sz"), level, 1e-9) << steep << " " << points;
        }
}
