#include "analysis/profile/Motifs.h"
#include "analysis/profile/ProfileParameters.h"

#include "tests/analysis/TestProfiles.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

constexpr double c_nan = c_undefined;

// Straight lines between corners that are some points apart.
std::vector<double> Join(const std::vector<double>& corners, std::size_t apart, double scale = 1e-6)
{
    return MakeProfile((corners.size() - 1) * apart + 1, [&](double x) {
        const auto i = std::min(static_cast<std::size_t>(x) / apart, corners.size() - 2);
        const double t = x / static_cast<double>(apart) - static_cast<double>(i);
        return scale * (corners[i] * (1 - t) + corners[i + 1] * t);
    });
}

// Corners again and again, with others behind them.
std::vector<double> Repeat(const std::vector<double>& corners, int times, const std::vector<double>& behind)
{
    std::vector<double> all;
    for (int i = 0; i < times; ++i)
        all.insert(all.end(), corners.begin(), corners.end());
    all.insert(all.end(), behind.begin(), behind.end());
    return all;
}

struct SExpected {
    double AR, R, Rx, SAR, SR; // in µm, corners being 10 µm apart
    double AW, W, Wx, SAW, SW, Wte;
};

void Expect(const std::vector<SValue>& values, const SExpected& e, const char* what, double scale = 1)
{
    const auto expect = [&](const char* key, double value, double unit) {
        const double actual = Get(values, key) / 1e-6 / unit;
        if (std::isnan(value))
            EXPECT_TRUE(std::isnan(actual)) << what << ": " << key << " is " << actual;
        else
            EXPECT_NEAR(actual, value, 1e-6) << what << ": " << key;
    };
    expect("p12085_RAr", e.AR, 1);
    expect("p12085_Rr", e.R, scale);
    expect("p12085_Rrx", e.Rx, scale);
    expect("p12085_RSAr", e.SAR, 1);
    expect("p12085_RSr", e.SR, scale);
    expect("p12085_WAr", e.AW, 1);
    expect("p12085_Wr", e.W, scale);
    expect("p12085_Wrx", e.Wx, scale);
    expect("p12085_WSAr", e.SAW, 1);
    expect("p12085_WSr", e.SW, scale);
    expect("p12085_Wte", e.Wte, scale);
}

} // namespace

TEST(Motifs, OfTrianglesByHand)
{
    constexpr SMotifLimits c_limits{.roughness = 50e-6, .waviness = 250e-6};
    struct SRow {
        const char* what;
        std::vector<double> corners;
        SMotifLimits limits;
        SExpected expected;
    };
    // 18 depths of 1 and as many of another height.
    const double ofTwo = std::sqrt(36.0 / 35) / 2;
    const SExpected none = {c_nan, c_nan, c_nan, c_nan, c_nan, c_nan, c_nan, c_nan, c_nan, c_nan, c_nan};
    const auto withoutWaviness = [&](double AR, double R, double Rx, double SAR, double SR, double Wte) {
        return SExpected{AR, R, Rx, SAR, SR, c_nan, c_nan, c_nan, c_nan, c_nan, Wte};
    };
    const SRow rows[] = {
        {"equal triangles", Repeat({0, 1}, 10, {0}), c_limits, withoutWaviness(20, 1, 1, 0, 0, 0)},
        {"the middle of a plateau is the peak", Repeat({0, 1, 1}, 10, {0}), c_limits,
         withoutWaviness(30, 1, 1, 0, 0, 0)},
        {"every other of half the height is taken in", Repeat({0, 1, 0, 0.5}, 9, {0, 1, 0}), c_limits,
         withoutWaviness(40, 1, 1, 0, 0, 0)},
        {"every other of 70 % is not",
         Repeat({0, 1, 0, 0.7}, 9, {0, 1, 0}),
         c_limits,
         {20, 0.85, 1, 0, 0.3 * ofTwo, 40, 0.3, 0.3, 0, 0, 0.3}},
        {"every other of half the height, but too wide together",
         Repeat({0, 1, 0, 0.5}, 9, {0, 1, 0}),
         {.roughness = 39e-6, .waviness = 250e-6},
         {20, 0.75, 1, 0, 0.5 * ofTwo, 40, 0.5, 0.5, 0, 0, 0.5}},
        {"waviness wider than its limit",
         Repeat({0, 1, 0, 0.7}, 9, {0, 1, 0}),
         {.roughness = 39e-6, .waviness = 39e-6},
         withoutWaviness(20, 0.85, 1, 0, 0.3 * ofTwo, 0.3)},
        {"the highest in the middle stays",
         {0, 1, 0, 1.5, 0, 1, 0},
         c_limits,
         withoutWaviness(20, 1.25, 1.5, 0, 0.5 / std::sqrt(3), 0.5)},
        // T of the whole, 1, is less than that of the deeper one, 1.2; depths .1 .3 1.2 2.2.
        {"the whole must not be shallower",
         {0, 1, 0.9, 1.2, 0, 2.2, 0},
         c_limits,
         withoutWaviness(20, 0.95, 2.2, 0, std::sqrt(2.77 / 3), 1.2)},
        {"a ripple below 5 % is no peak",
         Repeat({0, 0.5, 0.47, 1}, 8, {0}),
         {.roughness = 90e-6, .waviness = 250e-6},
         withoutWaviness(40, 1, 1, 0, 0, 0)},
        {"wider than the limit",
         Repeat({0, 1}, 10, {0}),
         {.roughness = 19e-6, .waviness = 250e-6},
         withoutWaviness(c_nan, c_nan, c_nan, c_nan, c_nan, 0)},
        {"one motif", {0, 1, 0, 1, 0}, c_limits, withoutWaviness(20, 1, 1, c_nan, 0, 0)},
        {"one peak", {0, 1, 0}, c_limits, none},
        {"no peak", {1, 1, 1}, c_limits, none},
    };
    for (const SRow& row : rows) {
        for (const double scale : {0.01, 1.0, 100.0})
            Expect(ComputeMotifs(Join(row.corners, 10, scale * 1e-6), c_dx, row.limits), row.expected,
                   row.what, scale);
        const std::vector<double> mirrored(row.corners.rbegin(), row.corners.rend());
        Expect(ComputeMotifs(Join(mirrored, 10), c_dx, row.limits), row.expected, row.what);
    }
}

// Of 40 depths some are 3, the others 1: what is more than the mean plus 1.65 standard deviations is cut.
TEST(Motifs, OutliersAreLimited)
{
    struct SRow {
        const char* what;
        std::vector<double> middle;
        double outliers;
        bool isPeak;
    };
    const SRow rows[] = {
        {"a peak", {0, 1, 0, 3, 0, 1}, 2, true},
        {"a valley", {0, 1, 0, 1, -2, 1}, 2, false},
        {"valleys on both sides of a peak", {0, 1, -2, 1, -2, 1}, 4, false},
    };
    for (const SRow& row : rows) {
        std::vector<double> corners = Repeat({0, 1}, 9, row.middle);
        const std::vector<double> behind = Repeat({0, 1}, 9, {0});
        corners.insert(corners.end(), behind.begin(), behind.end());
        const double mean = (40 + 2 * row.outliers) / 40;
        const double squares =
            (40 - row.outliers) * std::pow(1 - mean, 2) + row.outliers * std::pow(3 - mean, 2);
        const double limit = mean + 1.65 * std::sqrt(squares / 39);
        const auto values = ComputeMotifs(Join(corners, 10), c_dx, {.roughness = 39e-6, .waviness = 250e-6});
        EXPECT_NEAR(Get(values, "p12085_Rr") / 1e-6, (40 - row.outliers + row.outliers * limit) / 40, 1e-6)
            << row.what;
        EXPECT_NEAR(Get(values, "p12085_Rrx") / 1e-6, 3, 1e-6) << row.what;
        EXPECT_NEAR(Get(values, "p12085_Wte") / 1e-6, row.isPeak ? limit - 1 : 0, 1e-6) << row.what;
    }
}

// Ripple of 1 µm on a wave of 10 µm: the ripple's motifs and, from peak to peak, the wave's.
TEST(Motifs, OfARippleOnAWave)
{
    const auto profile =
        MakeProfile(16001, [](double x) { return 0.5e-6 * Wave(x, 40) + 5e-6 * Wave(x, 1600) + 1e-7 * x; });
    const auto values = ComputeProfile(
        profile, c_dx, {.motifLimits = SMotifLimits{.roughness = 500e-6, .waviness = 2500e-6}});
    EXPECT_NEAR(Get(values, "p12085_WAr"), 1600e-6, 20e-6);
    EXPECT_NEAR(Get(values, "p12085_Wr"), 10e-6, 0.3e-6);
    EXPECT_NEAR(Get(values, "p12085_Wte"), 10e-6, 1e-6); // the fitted line is not quite that of the tilt
    EXPECT_NEAR(Get(values, "p12085_RAr"), 40e-6, 2e-6);
    // The wave's slope takes up to a third from one depth and adds it to the other.
    EXPECT_NEAR(Get(values, "p12085_Rr"), 1e-6, 0.1e-6);
}

TEST(Motifs, OfARoughProfileDependNeitherOnDirectionNorOnScale)
{
    std::mt19937 random(11);
    std::vector<double> profile = MakeProfile(
        5000, [&](double x) { return 1e-6 * Wave(x, 900) + 1e-9 * static_cast<double>(random() % 1000); });
    const SMotifLimits limits{.roughness = 100e-6, .waviness = 500e-6};
    const auto values = ComputeMotifs(profile, c_dx, limits);
    std::vector<double> turned(profile.rbegin(), profile.rend());
    std::vector<double> raised = profile;
    for (double& z : raised)
        z = 100 * z + 1e-3;
    const auto mirrored = ComputeMotifs(turned, c_dx, limits);
    const auto larger = ComputeMotifs(raised, c_dx, limits);
    for (const SValue& value : values) {
        EXPECT_FALSE(std::isnan(value.value)) << value.key;
        EXPECT_NEAR(Get(mirrored, value.key) / value.value, 1, 1e-9) << value.key;
        const bool isWidth = value.key.find("Ar") != value.key.npos;
        EXPECT_NEAR(Get(larger, value.key) / value.value, isWidth ? 1 : 100, 1e-6) << value.key;
    }
    EXPECT_LE(Get(values, "p12085_RAr"), 100e-6);
}

TEST(Motifs, WhereTheyAreUndefinedTheySayWhy)
{
    const auto triangles = Join(Repeat({0, 1}, 10, {0}), 10);
    auto gap = triangles;
    gap[50] = c_missing;
    const SMotifLimits limits{.roughness = 50e-6, .waviness = 250e-6};
    struct SRow {
        std::vector<double> profile;
        SMotifLimits limits;
        std::string_view key;
        std::string_view reason;
    };
    const SRow rows[] = {
        {triangles, limits, "p12085_Rr", ""},
        {triangles, limits, "p12085_Wte", ""},
        {triangles, limits, "p12085_Wr", "no motif of the upper envelope is as narrow as the limit B"},
        {gap, limits, "p12085_Rr", "motifs need a profile without missing points"},
        {{}, limits, "p12085_Wte", "motifs need a profile without missing points"},
        {{0, 1e-6}, limits, "p12085_Rr", "no motif of the profile is as narrow as the limit A"},
        {{0, 1e-6}, limits, "p12085_Wte", "the profile has fewer than two peaks for an upper envelope"},
        {triangles,
         {2e-6, 250e-6},
         "p12085_Rr",
         "a limit of the motifs is not longer than two spacings of the points"},
        {triangles,
         {50e-6, c_nan},
         "p12085_RAr",
         "a limit of the motifs is not longer than two spacings of the points"},
        {Join({0, 1, 0, 1, 0}, 10), limits, "p12085_RSAr", "there is a single motif"},
    };
    for (const SRow& row : rows) {
        const auto values = ComputeMotifs(row.profile, c_dx, row.limits);
        EXPECT_EQ(std::ranges::find(values, row.key, &SValue::key)->reason, row.reason) << row.key;
    }
}

TEST(Motifs, DefaultLimitsAreThoseOfTheNearestEvaluationLength)
{
    const struct {
        double length, A, B; // mm
    } rows[] = {{0.064, 0.02, 0.1}, {0.64, 0.02, 0.1}, {1.4, 0.02, 0.1}, {1.5, 0.1, 0.5}, {3.2, 0.1, 0.5},
                {7.1, 0.1, 0.5},    {7.2, 0.5, 2.5},   {16, 0.5, 2.5},   {80, 0.5, 2.5}};
    for (const auto& row : rows) {
        const SMotifLimits limits = DefaultMotifLimits(1000, row.length * 1e-6);
        EXPECT_DOUBLE_EQ(limits.roughness, row.A * 1e-3) << row.length;
        EXPECT_DOUBLE_EQ(limits.waviness, row.B * 1e-3) << row.length;
    }
}
