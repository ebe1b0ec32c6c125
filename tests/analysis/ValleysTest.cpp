#include "analysis/profile/Valleys.h"
#include "analysis/profile/ProfileParameters.h"

#include "tests/analysis/TestProfiles.h"

#include <cmath>
#include <random>

using namespace CommonUI::Analysis;

namespace
{

constexpr std::size_t c_points = 4001;
constexpr double c_length = 4001e-6;
constexpr double c_cutoff = 500e-6;

// Grooves with straight flanks that are 40 points wide and 1 deep, 200 points apart; downward.
double Groove(double x)
{
    return std::max(1 - std::abs(std::fmod(x, 200) - 100) / 20, 0.0);
}

std::vector<SValue> Compute(const std::vector<double>& profile, SValleyMethod method = {})
{
    return ComputeProfile(profile, c_dx, {.cutoff = c_cutoff, .valleys = method});
}

} // namespace

TEST(Valleys, OfGroovesInAPlateau)
{
    using enum EReferenceLine;
    struct SRow {
        const char* what;
        EReferenceLine line;
        double (*height)(double x);
        double depth; // of grooves that are 1 deep
        double width; // at 1 % below the line, of 40 points
        double tolerance;
    };
    const auto plateau = [](double x) { return -Groove(x); };
    const auto bow = [](double x) { return 5 * std::pow(x / 2000 - 1, 2) - Groove(x); };
    const SRow rows[] = {
        {"plateau", Regression2, plateau, 1, 39.6, 1e-6},
        {"plateau", Regression0, plateau, 1, 39.6, 1e-6},
        // The mean is a tenth of the depth below the plateau.
        {"plateau", MeanLine, plateau, 0.9, 35.6, 1e-3},
        {"bow", Regression2, bow, 1, 39.6, 1e-3},
    };
    for (const SRow& row : rows)
        for (const double scale : {1e-8, 1e-6, 1e-4}) {
            const auto profile =
                MakeProfile(c_points, [&](double x) { return scale * row.height(x) + 1e-9 * x; });
            const auto values = Compute(profile, {.line = row.line});
            const auto expect = [&](const char* key, double value) {
                EXPECT_NEAR(Get(values, key) / value, 1, row.tolerance) << row.what << ": " << key;
            };
            expect("Msm", 200e-6);
            expect("rMn", 20 / c_length);
            expect("rMd", row.depth * scale);
            expect("rMx", row.depth * scale);
            expect("rMw", row.width * 1e-6);
            expect("rMa", 100 * 20 * row.width * 1e-6 / c_length);
            expect("rMv", 20 * row.width * 1e-6 * (row.depth + 0.01) * scale / 2 / c_length);
            EXPECT_NEAR(Get(values, "rMs"), 0, row.tolerance * scale) << row.what;
        }
}

// Noise on the plateau, and depths 1 and 3 in turn, each with a fifth of the length: the line stays on the
// plateau.
TEST(Valleys, ReferenceLineIsRobust)
{
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0, 0.01);
    const auto profile = MakeProfile(c_points, [&](double x) {
        const double share = std::fmod(x, 200);
        const double depth = share >= 80 && share < 160 ? std::fmod(x, 400) < 200 ? 1 : 3 : 0;
        return 1e-6 * (noise(random) - depth);
    });
    const auto values = Compute(profile);
    EXPECT_NEAR(Get(values, "rMd"), 2e-6, 0.05e-6);
    EXPECT_NEAR(Get(values, "rMx"), 3e-6, 0.05e-6);
    EXPECT_NEAR(Get(values, "rMs"), 1e-6 * std::sqrt(20.0 / 19), 0.02e-6);
    EXPECT_NEAR(Get(values, "rMw"), 80e-6, 2e-6);
    EXPECT_NEAR(Get(values, "Msm"), 200e-6, 1e-6);
    EXPECT_NEAR(Get(values, "rMn"), 20 / c_length, 1);
}

TEST(Valleys, WhatCountsAsOne)
{
    const auto at = [](double x, double middle, double width, double depth) {
        return std::abs(x - middle) < width / 2 ? -depth : 0.0;
    };
    const auto profile = MakeProfile(c_points, [&](double x) {
        return 1e-6 * (at(x, 0, 81, 1) + at(x, 1000, 39, 1) + at(x, 2000, 39, 0.04) + at(x, 3000, 39, 1));
    });
    const auto values = Compute(profile);
    EXPECT_NEAR(Get(values, "rMn"), 2 / c_length, 1e-6); // not what an end cuts off, nor less than 5 %
    EXPECT_NEAR(Get(values, "Msm"), 2000e-6, 1e-9);
    EXPECT_NEAR(Get(values, "rMw"), 39.98e-6, 1e-9);
    EXPECT_NEAR(Get(values, "rMa"), 100 * (40.99 + 39.98 + 39.98) * 1e-6 / c_length, 1e-6);
}
