#include "settings/readers/FilterSettings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace CommonUI;

TEST(FilterSettings, CutoffLengthFollowsItsRule)
{
    const SFilterCutoff given{.length = 0.8e-3};
    const SFilterCutoff seventh{.rule = ECutoffRule::Fraction, .fraction = 1. / 7};
    const SFilterCutoff automatic{.rule = ECutoffRule::Automatic};
    EXPECT_EQ(given.GetLength(0), 0.8e-3);
    EXPECT_DOUBLE_EQ(seventh.GetLength(5.6e-3), 0.8e-3);
    const std::pair<double, double> rows[] = {
        {4e-3, 0.8e-3},   {3.9999e-3, 0.5e-3}, {12.5e-3, 2.5e-3},    {10e-6, 2e-6},
        {9e-6, 1e-6},     {4.9999e-6, 0.8e-6}, {49e-6, 8e-6},        {5, 1},
        {3 * 0.1, 50e-3}, {100 * 1e-6, 20e-6}, {3 * 0.4e-3, 0.2e-3}, {5e3, 1e3},
    };
    for (const auto& [evaluationLength, cutoff] : rows)
        EXPECT_DOUBLE_EQ(automatic.GetLength(evaluationLength), cutoff) << evaluationLength;
    for (const double none : {0., -1., std::numeric_limits<double>::quiet_NaN(), HUGE_VAL}) {
        EXPECT_EQ(seventh.GetLength(none), 0) << none;
        EXPECT_EQ(automatic.GetLength(none), 0) << none;
    }
    for (double power = -300; power < 308; power += 0.37) {
        const double length = std::pow(10, power);
        const double ratio = length / automatic.GetLength(length);
        EXPECT_TRUE(ratio > 4.99 && ratio < 10.01) << power;
    }
}
