#include "analysis/profile/Motifs.h"
#include "analysis/profile/ProfileParameters.h"

#include "tests/analysis/TestProfiles.h"
#include "tests/TestData.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

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

bool IsWidth(std::string_view key)
{
    return key.find("Ar") != key.npos;
}

} // namespace

// A line of the record: what it is, corners 10 µm apart, how often they come, corners behind them, the limits
// A and B, and the values in the order of these keys; all in µm.
TEST(Motifs, OfTrianglesByHand)
{
    const char* const keys[] = {"p12085_RAr",  "p12085_Rr",  "p12085_Rrx", "p12085_RSAr",
                                "p12085_RSr",  "p12085_WAr", "p12085_Wr",  "p12085_Wrx",
                                "p12085_WSAr", "p12085_WSr", "p12085_Wte"};
    for (const std::string& row : ReadTestLines("motifs-of-triangles.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const auto corners = Repeat(GetNumbers(cells[1]), std::stoi(cells[2]), GetNumbers(cells[3]));
        const std::vector<double> limits = GetNumbers(cells[4]);
        const std::vector<double> expected = GetNumbers(cells[5]);
        for (const auto& directed : {corners, std::vector<double>(corners.rbegin(), corners.rend())})
            for (const double scale : {0.01, 1.0, 100.0}) {
                const auto values = ComputeMotifs(Join(directed, 10, scale * 1e-6), c_dx,
                                                  {limits[0] * 1e-6, limits[1] * 1e-6});
                for (std::size_t i = 0; i < std::size(keys); ++i) {
                    const double unit = IsWidth(keys[i]) ? 1e-6 : scale * 1e-6;
                    const double value = Get(values, keys[i]) / unit;
                    EXPECT_EQ(std::isnan(value), std::isnan(expected[i])) << cells[0] << ": " << keys[i];
                    EXPECT_FALSE(std::abs(value - expected[i]) > 1e-6) << cells[0] << ": " << keys[i];
                }
            }
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
        EXPECT_NEAR(Get(larger, value.key) / value.value, IsWidth(value.key) ? 1 : 100, 1e-6) << value.key;
    }
    EXPECT_LE(Get(values, "p12085_RAr"), 100e-6);
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
