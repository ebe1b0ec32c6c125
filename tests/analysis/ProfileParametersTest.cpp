#include "analysis/profile/ProfileParameters.h"

#include "tests/analysis/TestProfiles.h"

#include <cmath>
#include <numbers>
#include <random>

using namespace CommonUI::Analysis;

TEST(ProfileParameters, Sine)
{
    const auto values =
        ComputeProfile(MakeProfile(4000, [](double x) { return 2e-3 + 1e-6 * Wave(x, 400); }), c_dx);
    EXPECT_NEAR(Get(values, "Rq"), 1e-6 / std::sqrt(2), 1e-14);
    EXPECT_NEAR(Get(values, "Rku"), 1.5, 1e-9);
    EXPECT_NEAR(Get(values, "Rt"), 2e-6, 1e-10);
    EXPECT_NEAR(Get(values, "Rz"), 2e-6, 1e-10);
    EXPECT_NEAR(Get(values, "Rmean"), 2e-3, 1e-15);
    EXPECT_NEAR(Get(values, "RSm"), 400e-6, 1e-10);
    EXPECT_NEAR(Get(values, "Rdq"), 2 * std::numbers::pi / 400 / std::sqrt(2), 1e-5);
    EXPECT_NEAR(Get(values, "4287Pc"), 2e-6, 1e-8); // the fitted line is not quite level
}

TEST(ProfileParameters, PrimaryProfileIsWithoutItsLine)
{
    const auto tilted = MakeProfile(4000, [](double x) { return 5e-7 * x + 1e-6 * Wave(x, 100); });
    const auto level = MakeProfile(4000, [](double x) { return 1e-6 * Wave(x, 100); });
    const auto values = ComputeProfile(tilted, c_dx);
    const auto expected = ComputeProfile(level, c_dx);
    for (const char* key : {"4287Pa", "4287Pq", "4287Pku", "4287Pp", "4287Pv", "4287Pz", "4287Pc", "4287Pt",
                            "4287PSm", "4287Pdq"})
        EXPECT_NEAR(Get(values, key), Get(expected, key), 1e-9 * std::max(std::abs(Get(expected, key)), 1e-6))
            << key;
    EXPECT_GT(Get(values, "Rt"), 1e-3);
    EXPECT_TRUE(std::isnan(Get(values, "Rz")));
}

TEST(ProfileParameters, ElementsAreTheSignificantOnes)
{
    struct SRow {
        const char* what;
        double rippleHeight; // of a ripple with a period of 20 points, on a wave of height 1 and 200 points
        double spikeHeight;  // of a spike in every valley
        double spikeWidth;   // in points
        double spacing;      // expected
    };
    const SRow rows[] = {
        {"plain wave", 0, 0, 0, 200},
        {"ripple within the band", 0.09, 0, 0, 200},
        {"spike narrower than a hundredth of the cut-off", 0, 2, 6, 200},
        {"spike wide enough", 0, 2, 12, 100},
    };
    for (const SRow& row : rows) {
        const auto profile = MakeProfile(4001, [&](double x) {
            const bool isSpike = std::abs(std::fmod(x, 200) - 150) < row.spikeWidth / 2;
            return 1e-6 * (Wave(x, 200) + row.rippleHeight * Wave(x, 20) + (isSpike ? row.spikeHeight : 0));
        });
        EXPECT_NEAR(Get(ComputeProfile(profile, c_dx), "RSm"), row.spacing * c_dx, 0.02 * row.spacing * c_dx)
            << row.what;
    }
}

TEST(ProfileParameters, ElementsOfPeriodicProfilesAreTheirPeriods)
{
    constexpr std::size_t c_points = 4000;
    std::mt19937 random(7);
    std::normal_distribution<double> noise(0, 0.02);
    // Three elements up to the least width, which is that of half an element: 250 with a fifth of the profile
    // as cut-off, 1000 with a twenty-fifth.
    for (const double shares : {5.0, 25.0})
        for (const double period : {1333.0, 433.3, 80.0, 60.0, 37.3, 16.67, 4.0}) {
            if (period / 2 < 0.01 * c_points / shares)
                continue;
            for (const double phase : {0.0, 0.21, 0.5, 0.83}) {
                const auto ofPhase = [&](double x) { return 1e-6 * Wave(x + phase * period, period); };
                const auto spacing = [&](const std::vector<double>& profile, const char* key) {
                    return Get(ComputeProfile(profile, c_dx, {.cutoff = c_points / shares * c_dx}), key) /
                           c_dx;
                };
                const auto sine = MakeProfile(c_points, ofPhase);
                EXPECT_NEAR(spacing(sine, "RSm"), period, 1e-3 * period) << phase << " of " << shares;
                // Three percent of a least-squares line stay in a sine of three periods, and less in more.
                if (c_points / period > 20) {
                    EXPECT_NEAR(spacing(sine, "4287PSm"), period, 1e-3 * period) << phase << " of " << shares;
                    EXPECT_NEAR(spacing(sine, "4287RSm"), period, 1e-2 * period) << phase << " of " << shares;
                }
                const auto noisy =
                    MakeProfile(c_points, [&](double x) { return ofPhase(x) + 1e-6 * noise(random); });
                EXPECT_NEAR(spacing(noisy, "RSm"), period, 1e-2 * period) << phase << " of " << shares;
                if (std::fmod(period, 4) == 0) {
                    const auto square =
                        MakeProfile(c_points, [&](double x) { return ofPhase(x) < 0 ? -1e-6 : 1e-6; });
                    EXPECT_NEAR(spacing(square, "RSm"), period, 1e-9 * period) << phase << " of " << shares;
                }
            }
        }
}

TEST(ProfileParameters, TenPointHeight)
{
    // Seven peaks of 1 … 7 nm between valleys of as many; the five greatest count.
    const auto profile = MakeProfile(28, [](double x) {
        const double height = std::floor(x / 4) + 1;
        return 1e-9 * (std::fmod(x, 4) < 2 ? height : -height) * (std::fmod(x, 2) < 1 ? 1 : 0.5);
    });
    ExpectValues(ComputeProfile(profile, c_dx), {{"Rz", 10e-9}, {"Rt", 14e-9}});
}

TEST(ProfileParameters, SlopeOfAStraightLineAndOfTooFewPoints)
{
    const auto slope = [](std::vector<double> heights) { return Get(ComputeProfile(heights, c_dx), "Rdq"); };
    const auto line = [](double x) { return 2e-7 * x; };
    EXPECT_NEAR(slope(MakeProfile(7, line)), 0.2, 1e-12);
    EXPECT_TRUE(std::isnan(slope(MakeProfile(6, line))));
}

TEST(ProfileParameters, MissingPoints)
{
    auto profile = MakeProfile(4000, [](double x) { return 1e-7 * x + 1e-6 * Wave(x, 100); });
    const auto whole = ComputeProfile(profile, c_dx);
    profile[2000] = c_missing;
    const auto broken = ComputeProfile(profile, c_dx);
    for (const char* key : {"Rz", "RSm", "4287PSm", "4287Pc"})
        EXPECT_TRUE(std::isnan(Get(broken, key))) << key;
    for (const char* key : {"Ra", "Rq", "Rt", "Rdq", "4287Pa", "4287Pq", "4287Pdq"})
        EXPECT_NEAR(Get(broken, key) / Get(whole, key), 1, 1e-2) << key;

    for (const SValue& value : ComputeProfile(std::vector<double>(20, c_missing), c_dx))
        EXPECT_TRUE(std::isnan(value.value)) << value.key;
    EXPECT_TRUE(std::isnan(Get(ComputeProfile({}, c_dx), "Ra")));
    ExpectValues(ComputeProfile(MakeProfile(100, [](double x) { return 0.1 * x; }), c_dx),
                 {{"4287Pq", 0}, {"4287Psk", c_undefined}, {"4287PSm", c_undefined}, {"4287Pdq", 0}});
}
