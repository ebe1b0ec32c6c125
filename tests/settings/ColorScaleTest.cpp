#include "settings/readers/ColorScale.h"

#include "tests/settings/SettingsTesting.h"

#include <gtest/gtest.h>

#include <limits>

using namespace CommonUI;

namespace
{

constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();

constexpr SColor c_black{0, 0, 0};
constexpr SColor c_red{200, 0, 0};
constexpr SColor c_green{0, 100, 0};
constexpr SColor c_blue{0, 0, 50};

} // namespace

TEST(ColorScale, ColorAtAPosition)
{
    SColorScale scale{.stops = {{0.2, c_black}, {0.6, c_red}, {0.6, c_green}, {1, c_blue}}};
    const std::tuple<double, SColor, SColor> rows[] = {
        {-1, c_black, c_black},      {0.2, c_black, c_black}, {0.3, {50, 0, 0}, c_black},
        {0.5, {150, 0, 0}, c_black}, {0.6, c_green, c_green}, {0.8, {0, 50, 25}, c_green},
        {1, c_blue, c_blue},         {2, c_blue, c_blue},     {c_nan, c_black, c_black},
    };
    for (const auto& [position, smooth, stripes] : rows) {
        scale.interpolation = EColorInterpolation::Smooth;
        EXPECT_EQ(scale.GetColor(position), smooth) << position;
        scale.interpolation = EColorInterpolation::Stripes;
        EXPECT_EQ(scale.GetColor(position), stripes) << position;
    }
    scale.missing = c_red;
    scale.below = c_green;
    scale.above = c_blue;
    EXPECT_EQ(scale.GetColor(c_nan), c_red);
    EXPECT_EQ(scale.GetColor(-1e-9), c_green);
    EXPECT_EQ(scale.GetColor(0), c_black);
    EXPECT_EQ(scale.GetColor(std::numeric_limits<double>::infinity()), c_blue);
}

TEST(ColorScale, TableReachesFromEndToEnd)
{
    const SColorScale grey;
    const std::vector<SColor> table = grey.MakeTable(256);
    ASSERT_EQ(table.size(), 256u);
    for (std::size_t i = 0; i < table.size(); ++i)
        EXPECT_EQ(table[i].green, i);
    EXPECT_EQ(grey.MakeTable(1), std::vector{c_black});
    EXPECT_TRUE(grey.MakeTable(0).empty());

    const SColorScale marked{
        .stops = {{0, c_red}, {1, c_green}}, .missing = {}, .below = c_blue, .above = c_blue};
    EXPECT_EQ(marked.MakeTable(2), (std::vector{c_red, c_green}));
}

TEST(ColorScale, ColorsBesideTheStopsHaveKeys)
{
    CInifile ini = Document(u"[ColorScale]\nMissing=200,0,0\nBelow=0,100,0\nAbove=0,0,50\n"
                            u"Stop1=0,0,0,0\nStop2=1,255,255,255\n");
    SColorScale scale;
    EXPECT_TRUE(scale.Load(ini));
    EXPECT_EQ(std::tuple(scale.missing, scale.below, scale.above), std::tuple(c_red, c_green, c_blue));
}

TEST(ColorScale, StopsAreLimited)
{
    CInifile ini;
    SColorScale scale{.stops = std::vector<SColorStop>(SColorScale::c_mostStops + 1, {0, c_red})};
    scale.Save(ini);
    CDiagnosticsCapture refusals(u"Inifile");
    EXPECT_FALSE(scale.Load(ini));
    EXPECT_EQ(refusals.Take(), std::vector<CStr>{u"Settings: [ColorScale] too many stops"});
    scale.stops.pop_back();
    scale.Save(ini);
    EXPECT_TRUE(scale.Load(ini));
}
