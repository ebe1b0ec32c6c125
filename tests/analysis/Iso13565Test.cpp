#include "analysis/profile/Iso13565.h"
#include "analysis/profile/ProfileParameters.h"

#include "tests/analysis/TestProfiles.h"

#include <cmath>
#include <numbers>

using namespace CommonUI::Analysis;

// By hand: the straight line of the core runs through both edges and is cut by the flanks of peaks and
// valleys.
TEST(Iso13565, OfCurvesWithAKnownCore)
{
    struct SRow {
        const char* what;
        double (*height)(double share); // at a material ratio of 0 to 1
        double Rk, Rpk, Rvk, Mr1, Mr2;
    };
    const SRow rows[] = {
        {"sawtooth", [](double r) { return 1 - r; }, 1, 0, 0, 0, 100},
        {"a level", [](double) { return 3.0; }, 0, 0, 0, 0, 100},
        {"peaks over 10 %, valleys over 10 %",
         [](double r) { return r < 0.1   ? 3 - 20 * r
                               : r < 0.9 ? 1 - (r - 0.1) / 0.8
                                         : -40 * (r - 0.9); },
         1.25, 1.875, 3.875, 9.375, 90.3125},
        {"plateau with grooves over a quarter", [](double r) { return r <= 0.75 ? 0.0 : 4 * (0.75 - r); }, 0,
         0, 1, 0, 75},
    };
    for (const SRow& row : rows)
        for (const double scale : {1e-8, 1e-6, 1e-4}) {
            // In no order, so that it is the curve that counts.
            const auto profile = MakeProfile(
                8001, [&](double x) { return scale * row.height(std::fmod(3001 * x, 8001) / 8000); });
            const auto values = ComputeIso13565(profile);
            EXPECT_NEAR(Get(values, "p13565_2Rk") / scale, row.Rk, 1e-3) << row.what;
            EXPECT_NEAR(Get(values, "p13565_2Rpk") / scale, row.Rpk, 5e-3) << row.what;
            EXPECT_NEAR(Get(values, "p13565_2Rvk") / scale, row.Rvk, 5e-3) << row.what;
            EXPECT_NEAR(Get(values, "p13565_2Rmr1"), row.Mr1, 0.02) << row.what;
            EXPECT_NEAR(Get(values, "p13565_2Rmr2"), row.Mr2, 0.02) << row.what;
        }
}

// A groove of depth D and width w lifts the roughness beside it by D w g, g = 1 / (α λc) being the greatest
// weight of the filter. Where it is filled first, it is a groove of that depth when it is filtered again: D
// (w g)².
TEST(Iso13565, FilledValleysDoNotLiftThePlateau)
{
    constexpr double c_cutoff = 1000;
    constexpr double c_width = 41;
    constexpr double c_depth = 5e-6;
    const auto profile =
        MakeProfile(8001, [](double x) { return std::abs(x - 4000) < c_width / 2 ? -c_depth : 0.0; });
    const CProfileSplitter splitter(profile.size(), c_dx, c_cutoff * c_dx);
    const double g = std::sqrt(c_pi / std::numbers::ln2) / c_cutoff;
    const auto beside = [](const std::vector<double>& heights) { return heights[4021] - heights[1000]; };
    EXPECT_NEAR(beside(splitter.Split(profile).roughness), c_depth * c_width * g,
                0.02 * c_depth * c_width * g);
    EXPECT_NEAR(beside(splitter.SplitFilled(CProfileSplitter::RemoveForm(profile))),
                c_depth * std::pow(c_width * g, 2), 0.05 * c_depth * std::pow(c_width * g, 2));
}
