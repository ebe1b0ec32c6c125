#include "analysis/profile/ProfileParameters.h"

#include "tests/analysis/TestProfiles.h"

#include <cmath>
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
    EXPECT_NEAR(Get(values, "Rdq"), 2 * c_pi / 400 / std::sqrt(2), 1e-5);
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
    struct SRow {
        double shares; // of the profile, of which the cut-off is one; half an element has a hundredth of it
        double period;
    };
    for (const SRow& row : {SRow{5, 1333}, {5, 433.3}, {5, 80}, {5, 16.67}, {25, 1333}, {25, 37.3}, {25, 4}})
        for (const double phase : {0.0, 0.21, 0.5, 0.83}) {
            const double period = row.period;
            const auto sine = [&](double x) { return 1e-6 * Wave(x + phase * period, period); };
            const auto expect = [&](const char* key, const auto& height, double tolerance) {
                const auto values = ComputeProfile(MakeProfile(c_points, height), c_dx,
                                                   {.cutoff = c_points / row.shares * c_dx});
                EXPECT_NEAR(Get(values, key) / c_dx / period, 1, tolerance)
                    << key << " of " << period << " from " << phase;
            };
            expect("RSm", sine, 1e-3);
            expect(
                "RSm", [&](double x) { return sine(x) + 1e-6 * noise(random); }, 1e-2);
            if (std::fmod(period, 4) == 0)
                expect(
                    "RSm", [&](double x) { return sine(x) < 0 ? -1e-6 : 1e-6; }, 1e-9);
            // Three percent of a least-squares line stay in a sine of three periods, and less in more.
            if (c_points / period > 20) {
                expect("4287PSm", sine, 1e-3);
                expect("4287RSm", sine, 1e-2);
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

TEST(ProfileParameters, MissingPoints)
{
    auto profile = MakeProfile(4000, [](double x) { return 1e-7 * x + 1e-6 * Wave(x, 100); });
    const auto whole = ComputeProfile(profile, c_dx);
    profile[2000] = c_missing;
    const auto broken = ComputeProfile(profile, c_dx);
    for (const char* key : {"Ra", "Rq", "Rt", "Rdq", "4287Pa", "4287Pq", "4287Pdq", "p13565_2Rk"})
        EXPECT_NEAR(Get(broken, key) / Get(whole, key), 1, 1e-2) << key;
}
