#include "measurement/charts/Chart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

using namespace CommonUI;
using namespace CommonUI::Measurement;

TEST(Chart, ValuesLieBetweenPointsAndNotInGaps)
{
    const SChartLine line{.points = {{0, 1}, {2, 5}, {3, Analysis::c_missing}, {4, 7}, {4, 9}, {5, 9}}};
    struct SRow {
        double x, value;
    };
    for (const auto& [x, value] : {SRow{0, 1}, {1, 3}, {2, 5}, {4.5, 9}, {5, 9}})
        EXPECT_EQ(GetValueAt(line, x), value) << x;
    for (const double x : {-0.1, 2.5, 3.0, 3.5, 5.1})
        EXPECT_TRUE(std::isnan(GetValueAt(line, x))) << x;
}

TEST(Chart, HistogramAndMaterialRatioAreThoseOfTheHeights)
{
    // From 0 to 1 µm, all heights alike often.
    std::vector<double> heights(10'000);
    for (std::size_t i = 0; i < heights.size(); ++i)
        heights[i] = 1e-6 * static_cast<double>(i) / 9999;
    const Analysis::CMaterialRatio curve(heights);
    const SHistogram histogram = ComputeHistogram(curve);
    EXPECT_EQ(histogram.shares.size(), 100u);
    EXPECT_NEAR(std::accumulate(histogram.shares.begin(), histogram.shares.end(), 0.0), 100, 1e-9);
    EXPECT_NEAR(histogram.mean, 0.5e-6, 1e-15);
    const SChart bars = MakeHistogramChart(histogram, 0.7e-6);
    EXPECT_NEAR(GetValueAt(bars.lines[0], 0.333e-6), 1, 0.05);
    EXPECT_EQ(bars.marks.size(), 2u);

    const SMaterialRatioFigure figure = MakeMaterialRatioFigure(curve);
    ASSERT_TRUE(figure.construction);
    EXPECT_NEAR(figure.construction->core.Sk, 1e-6, 1e-12);
    EXPECT_NEAR(figure.construction->top, 1e-6, 1e-9);
    EXPECT_FALSE(MakeMaterialRatioFigure(curve, false).construction);
    EXPECT_NEAR(GetValueAt(MakeMaterialRatioChart(figure).lines.back(), 25), 0.75e-6, 1e-12);
}

TEST(Chart, TablesHaveTwoColumnsForEachCurve)
{
    SChart chart{.x = {.name = u"x", .isLength = true}, .y = {.name = u"points / %"}};
    chart.lines = {{.name = u"a", .points = {{0, 1}, {1e-6, Analysis::c_missing}}},
                   {.kind = EChartLine::Construction, .points = {{0, 0}}},
                   {.name = u"b", .points = {{2e-6, 3}}}};
    EXPECT_EQ(MakeChartText(chart).ToUtf8(), "x / m\ta: points / %\tx / m\tb: points / %\r\n"
                                             "0\t1\t2e-06\t3\r\n1e-06\t\t\t\r\n");
    chart.x.range = {0, 2e-6};
    EXPECT_EQ(chart.x.GetText(-1.25e-6, 1e-9).ToUtf8(), "−1.250 µm");
    EXPECT_EQ(chart.x.GetText(Analysis::c_missing, 1).ToUtf8(), "–");
}
