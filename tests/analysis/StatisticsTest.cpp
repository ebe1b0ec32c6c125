#include "analysis/numeric/Statistics.h"

#include "tests/analysis/TestSurfaces.h"

#include <cmath>

using namespace CommonUI::Analysis;

TEST(Statistics, OfAList)
{
    const double nan = c_undefined;
    const std::vector<double> list = {4, nan, 1, 2, 9};
    ExpectValues(ComputeStatistics(list, 0.9), {{"Count", 4},
                                                {"Sum", 16},
                                                {"Minimum", 1},
                                                {"Maximum", 9},
                                                {"Mean", 4},
                                                {"Sd", std::sqrt(38.0 / 3)},
                                                {"SdPercent ", 25 * std::sqrt(38.0 / 3)},
                                                {"Median", 3},
                                                {"Fractile", 7.5}});
    ExpectValues(ComputeStatistics(std::vector{-1.0, -3.0}),
                 {{"SdPercent ", 50 * std::sqrt(2)}, {"Fractile", -2.5}});
    const auto cancelling = ComputeStatistics(std::vector{0.1e-9, 0.2e-9, -0.3e-9});
    EXPECT_EQ(Get(cancelling, "Mean"), 0); // the sum of these three is not quite 0
    EXPECT_EQ(Get(cancelling, "Sum"), 0);
    ExpectValues(cancelling, {{"SdPercent ", nan}});
    ExpectValues(ComputeStatistics(std::vector{5.0}),
                 {{"Sd", nan}, {"SdPercent ", nan}, {"Median", 5}, {"Fractile", 5}});
    ExpectValues(ComputeStatistics(std::vector{nan}),
                 {{"Count", 0}, {"Sum", 0}, {"Mean", nan}, {"Minimum", nan}, {"Median", nan}});
}

TEST(Statistics, Mode)
{
    const double nan = c_undefined;
    struct SRow {
        std::vector<double> values;
        double mode;
    };
    const SRow rows[] = {
        {{nan}, nan},
        {{5, nan}, 5},
        {{1, 4}, 2.5},
        {{7, 1, 4}, 4},
        {{0, 5, 6}, 5.5},
        {{9, 2, 2, 7, 2, 100}, 2},
        {{0, 10, 20, 20.5, 20.75, 30, 40, 50}, 20.625},
    };
    for (const SRow& row : rows)
        ExpectValues({{"Mode", ComputeMode(row.values)}}, {{"Mode", row.mode}});
}

TEST(Statistics, Weighted)
{
    const double nan = c_undefined;
    struct SRow {
        std::vector<double> values;
        std::vector<double> weights;
        double mean;
        double sd;
    };
    const SRow rows[] = {
        {{1, 4}, {2e-12, 1e-12}, 2, std::sqrt(2)},
        {{1, nan, 4, 9, 9}, {2, 5, 1, 0, nan}, 2, std::sqrt(2)},
        {{3}, {1e-30}, 3, 0},
        {{3}, {0}, nan, nan},
        {{}, {}, nan, nan},
    };
    for (const SRow& row : rows) {
        const SWeighted weighted = ComputeWeighted(row.values, row.weights);
        ExpectValues({{"Mean", weighted.mean}, {"Sd", weighted.sd}}, {{"Mean", row.mean}, {"Sd", row.sd}});
    }
}
