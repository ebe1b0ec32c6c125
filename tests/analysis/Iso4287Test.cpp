#include "analysis/profile/ProfileParameters.h"
#include "analysis/profile/SplitProfile.h"

#include "tests/analysis/TestProfiles.h"

#include <cmath>
#include <string>

using namespace CommonUI::Analysis;

TEST(Iso4287, SeparatesRoughnessFromWaviness)
{
    // tilt, 3 µm of waviness and 1 µm of roughness, a fifth of the cut-off long
    const auto profile = MakeProfile(
        10000, [](double x) { return 2e-8 * x + 3e-6 * Wave(x + 1250, 5000) + 1e-6 * Wave(x, 100); });
    const auto values = ComputeProfile(profile, c_dx, {.cutoff = 500e-6});
    const auto expect = [&](const char* key, double value, double tolerance) {
        EXPECT_NEAR(Get(values, key), value, tolerance * value) << key;
    };
    expect("4287Ra", 2e-6 / c_pi, 0.02);
    expect("4287Rq", 1e-6 / std::sqrt(2), 0.02);
    expect("4287Rku", 1.5, 0.03);
    expect("4287Rz", 2e-6, 0.03);
    expect("4287Rc", 2e-6, 0.03);
    expect("4287RSm", 100e-6, 0.01);
    expect("4287Rdq", 2 * c_pi / 100 / std::sqrt(2), 0.01);
    expect("4287Wt", 6e-6, 0.05);
    expect("4287Wa", 6e-6 / c_pi, 0.1);
    expect("4287WSm", 5000e-6, 0.1);
    EXPECT_GT(Get(values, "4287Pt"), 7e-6);
}

// cos(t) + cos(2t) / 4 reaches from -3/4 to 5/4, with moments of 17/32, 3/16 and 963/2048.
TEST(Iso4287, ShapeWithHighPeaks)
{
    struct SRow {
        const char* prefix;
        double period; // in points; of 50000 with a cut-off of 500
        double tolerance;
    };
    const double square = 17.0 / 32;
    for (const SRow& row :
         {SRow{"", 2500, 1e-3}, {"4287R", 50, 0.01}, {"4287W", 10000, 0.015}, {"4287P", 2500, 0.01}}) {
        const auto profile = MakeProfile(50000, [&](double x) {
            return 1e-6 *
                   (Wave(x + row.period / 4, row.period) + Wave(x + row.period / 8, row.period / 2) / 4);
        });
        const auto values = ComputeProfile(profile, c_dx, {.cutoff = 500e-6});
        const std::string prefix = *row.prefix == 0 ? "R" : row.prefix;
        const auto expect = [&](const std::string& suffix, double value) {
            EXPECT_NEAR(Get(values, prefix + suffix), value, row.tolerance * value) << prefix << suffix;
        };
        expect("p", 1.25e-6);
        expect("v", 0.75e-6);
        expect("z", 2e-6);
        expect("t", 2e-6);
        expect("q", 1e-6 * std::sqrt(square));
        expect("sk", 3.0 / 16 / std::pow(square, 1.5));
        expect("ku", 963.0 / 2048 / (square * square));
        expect("Sm", row.period * c_dx);
        expect("dq", 2 * c_pi / row.period * std::sqrt(5.0 / 8));
        if (prefix == "R") {
            expect("max", 1.25e-6);
            EXPECT_NEAR(Get(values, "Rmin"), -0.75e-6, 1e-9);
        } else {
            expect("c", 2e-6);
        }
    }
}

TEST(Iso4287, RoughnessIsTheMeanOfTheSamplingLengths)
{
    // Ripple whose amplitude doubles from one of five sampling lengths to the next: 1 + 2 + 4 + 8 + 16 = 31.
    const auto profile =
        MakeProfile(5000, [](double x) { return 1e-6 * Wave(x, 40) * std::exp2(std::floor(x / 1000)); });
    const auto values = ComputeProfile(profile, c_dx);
    EXPECT_NEAR(Get(values, "4287Rz"), 2e-6 * 31 / 5, 0.2e-6);
    EXPECT_NEAR(Get(values, "4287Rq"), 1e-6 * 31 / 5 / std::sqrt(2), 0.05e-6);
    EXPECT_NEAR(Get(values, "4287Rt"), 32e-6, 0.5e-6);
    EXPECT_NEAR(Get(values, "4287RSm"), 40e-6, 0.2e-6);
}

TEST(Iso4287, SamplingLengthsAreWholeCutoffsInTheMiddle)
{
    struct SRow {
        std::size_t points;
        double cutoff; // in points
        std::size_t count;
        std::ptrdiff_t begin;
        std::ptrdiff_t end;
    };
    for (const SRow& row :
         {SRow{6000, 1100, 5, 250, 5750}, {4096, 819.2, 5, 0, 4096}, {100, 60, 1, 20, 80}}) {
        const std::vector<double> profile(row.points);
        const auto lengths =
            CProfileSplitter(row.points, c_dx, row.cutoff * c_dx).GetSamplingLengths(profile);
        ASSERT_EQ(lengths.size(), row.count) << row.cutoff;
        EXPECT_EQ(lengths.front().data() - profile.data(), row.begin) << row.cutoff;
        EXPECT_EQ(&lengths.back().back() - profile.data() + 1, row.end) << row.cutoff;
    }
}

TEST(Iso4287, CutoffThatDoesNotFit)
{
    const auto profile = MakeProfile(1000, [](double x) { return 1e-6 * Wave(x, 20); });
    const auto isFiltered = [](std::string_view key) {
        const auto quantities = GetProfileQuantities();
        return std::ranges::find(quantities, key, &SQuantity::key)->IsFiltered();
    };
    for (const double cutoff : {c_undefined, 0.0, -c_dx, 2 * c_dx, 1001 * c_dx, HUGE_VAL})
        for (const SValue& row : ComputeProfile(profile, c_dx, {.cutoff = cutoff}))
            EXPECT_TRUE(std::isnan(row.value) == isFiltered(row.key) ||
                        row.key.starts_with("p12085_W")) // no envelope to speak of
                << row.key << " at " << cutoff;
}

TEST(Iso4287, MissingPoints)
{
    auto profile = MakeProfile(5000, [](double x) { return 1e-6 * Wave(x, 50); });
    for (std::size_t i = 1000; i < 2000; ++i)
        profile[i] = c_missing; // a whole sampling length
    profile[2500] = c_missing;
    const auto values = ComputeProfile(profile, c_dx, {.cutoff = 1000e-6});
    EXPECT_NEAR(Get(values, "4287Rq"), 1e-6 / std::sqrt(2), 2e-8);
    EXPECT_NEAR(Get(values, "4287RSm"), 50e-6, 1e-6);
    EXPECT_TRUE(std::isnan(Get(values, "4287WSm")));
}
