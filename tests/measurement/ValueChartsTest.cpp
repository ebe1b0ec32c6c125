#include "measurement/charts/ValueCharts.h"

#include "model/RoughnessCatalogue.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/TestData.h"

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

constexpr double c_none = Analysis::c_undefined;

// Values of a height, in nm.
SColumn ColumnOf(std::vector<double> values)
{
    for (double& value : values)
        value *= 1e-9;
    return MakeColumn(MakeRoughnessParameter(ERoughnessParameters::Sq), std::move(values), true);
}

} // namespace

TEST(ValueCharts, HistogramHasTheSharesOfItsClasses)
{
    const SColumn column = ColumnOf({1, 1, 1, 2, c_none, 5});
    const std::string svg = DrawValueHistogram(column, column.values);
    EXPECT_TRUE(Has(svg, "<desc>5 values from 1 to 5 nm; mean 2</desc>")) << svg;
    EXPECT_TRUE(Has(svg, ">Sq / nm</text>"));
    // The highest bar, of 60 %, and those of 20 % with a third of its height.
    EXPECT_TRUE(Has(svg, "height=\"293.33\"") && Has(svg, "height=\"97.78\"") && Has(svg, "height=\"0\""));
}

TEST(ValueCharts, GapsOfTheRowsStayOpen)
{
    const SColumn column = ColumnOf({3, 4, c_none, 6, 7});
    const std::string svg = DrawValuesOverRows(column, column.values, u"profile");
    EXPECT_TRUE(Has(svg, "<desc>4 values from 3 to 7 nm; mean 5</desc>")) << svg;
    const std::size_t path = svg.find("d=\"M");
    const std::string data = svg.substr(path, svg.find('"', path + 3) - path);
    EXPECT_EQ(std::ranges::count(data, 'M'), 2) << data;
    EXPECT_TRUE(Has(svg, ">profile</text>"));
}

TEST(ValueCharts, ValuesMayBeAlikeOrMissing)
{
    const SColumn none = ColumnOf({c_none, c_none});
    EXPECT_EQ(DrawValueHistogram(none, none.values), "");
    EXPECT_EQ(DrawValuesOverRows(none, none.values, u"profile"), "");
    EXPECT_EQ(DrawValuesOverRows(none, ColumnOf({1}).values, u"profile"), "");
    for (const double value : {0.0, 7.0, -1e90}) {
        const SColumn column = ColumnOf(std::vector<double>(1000, value));
        for (const std::string& svg : {DrawValueHistogram(column, column.values),
                                       DrawValuesOverRows(column, column.values, u"profile")}) {
            EXPECT_FALSE(svg.empty());
            EXPECT_FALSE(Has(svg, "\"nan") || Has(svg, "\"inf")) << svg;
        }
    }
}
