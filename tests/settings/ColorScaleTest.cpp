#include "settings/ColorScale.h"

#include "ReaderTesting.h"

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
    const struct {
        double position;
        SColor smooth;
        SColor stripes;
    } rows[] = {
        {-1, c_black, c_black},      {0.2, c_black, c_black}, {0.3, {50, 0, 0}, c_black},
        {0.5, {150, 0, 0}, c_black}, {0.6, c_green, c_green}, {0.8, {0, 50, 25}, c_green},
        {1, c_blue, c_blue},         {2, c_blue, c_blue},     {c_nan, c_black, c_black},
    };
    for (const auto& row : rows) {
        scale.interpolation = EColorInterpolation::Smooth;
        EXPECT_EQ(scale.GetColor(row.position), row.smooth) << row.position;
        scale.interpolation = EColorInterpolation::Stripes;
        EXPECT_EQ(scale.GetColor(row.position), row.stripes) << row.position;
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

TEST(ColorScale, SavesAndLoads)
{
    const SColorScale scale{.interpolation = EColorInterpolation::Stripes,
                            .stops = {{0, c_black}, {0.1, c_red}, {1.0 / 3, c_green}},
                            .missing = SColor{1, 2, 3},
                            .below = c_blue,
                            .above = {}};
    CInifile ini = Document(u"[Other]\nKey=1\n[ColorScale]\nAbove=1,1,1\nStop9=1,0,0,0\n");
    ini.SelectSection(u"Other");
    scale.Save(ini);
    SColorScale read;
    EXPECT_TRUE(read.Load(ini));
    EXPECT_EQ(read, scale);
    EXPECT_EQ(ini.GetSection(), u"Other");
    EXPECT_EQ(ini.GetBytes(),
              "[Other]\nKey=1\n[ColorScale]\nInterpolation=Stripes\nMissing=1,2,3\nBelow=0,0,50\n"
              "Stop1=0,0,0,0\nStop2=0.1,200,0,0\nStop3=0.3333333333333333,0,100,0\n");
}

TEST(ColorScale, RefusesWhatIsUnusable)
{
    const std::string good = "[ColorScale]\nStop1=0,0,0,0\nStop2=1,255,255,255\n";
    std::string tooMany = "[ColorScale]\n";
    for (std::size_t i = 1; i <= SColorScale::c_mostStops + 1; ++i)
        tooMany += "Stop" + std::to_string(i) + "=0,0,0,0\n";
    const SColorScale before{.stops = {{0, c_red}, {1, c_blue}}};
    ExpectReads(
        before, "ColorScale",
        {
            {good},
            {good + "Stop4=nonsense\n"}, // stops end at the first number that is missing
            {"[ColorScale]\nStop1=0.5,0,0,0\nStop2=0.5,1,1,1\n"},
            {"", {"fewer than two stops"}},
            {"Stop1=0,0,0,0\nStop2=1,0,0,0\n", {"fewer than two stops"}},
            {"[ColorScale]\nStop1=0,0,0,0\n", {"fewer than two stops"}},
            {good + "Stop3=1,0,0\n", {"Stop3=1,0,0 is not a position and a colour"}},
            {good + "Stop3=1,0,0,256\n", {"Stop3=1,0,0,256 is not a position and a colour"}},
            {good + "Stop3=1,0,0.5,0\n", {"Stop3=1,0,0.5,0 is not a position and a colour"}},
            {good + "Stop3=nan,0,0,0\n", {"Stop3=nan,0,0,0 is not a position and a colour"}},
            {good + "Stop3=0.9,0,0,0\n", {"Stop3=0.9,0,0,0 is not at or above the stop before it"}},
            {good + "Interpolation=smooth\n", {"Interpolation=smooth is not a choice that is known"}},
            {good + "Below=red\nAbove=1,2\n", {"Below=red is not a colour", "Above=1,2 is not a colour"}},
            {tooMany, {"too many stops"}},
        });
}

TEST(ColorScale, BuiltInScalesHoldWhatTheirNamesSay)
{
    const SColorScale grey = BuiltIn<SColorScale>(177);
    const SColorScale inverted = BuiltIn<SColorScale>(178);
    for (const double position : {0.0, 0.2, 0.7, 1.0})
        EXPECT_EQ(grey.GetColor(position), inverted.GetColor(1 - position));

    const auto countStripes = [](const SColorScale& scale) {
        std::vector<SColor> table = scale.MakeTable(1000);
        table.erase(std::unique(table.begin(), table.end()), table.end());
        return table.size();
    };
    EXPECT_EQ(countStripes(BuiltIn<SColorScale>(195)), 5u);
    EXPECT_EQ(countStripes(BuiltIn<SColorScale>(196)), 10u);
}
