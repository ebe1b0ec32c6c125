#include "analysis/areal/TemplateParameters.h"

#include "tests/analysis/TestProfiles.h"

#include <algorithm>
#include <cmath>

using namespace CommonUI::Analysis;

namespace
{

// Heights from 0 to 1000 µm in no order, mean 500 µm: a straight material ratio curve.
SSurface MakeRamp(std::size_t lines)
{
    return MakeSurface(1001, lines, [](double x, double) { return 1e-6 * std::fmod(37 * x, 1001); });
}

struct SRow {
    const char* key;
    std::vector<double> values;
    double expected;
};

constexpr double c_nan = c_undefined;

} // namespace

TEST(TemplateParameters, OfARamp)
{
    const SRow rows[] = {
        {"Smr", {0}, 50},      {"Smr", {250e-6}, 25},     {"Smr", {-500e-6}, 100},
        {"Smr", {501e-6}, 0},  {"Smc", {10}, 400e-6},     {"Smc", {100}, -500e-6},
        {"Sch", {95}, 450e-6}, {"Sdc", {10, 50}, 400e-6}, {"Vm", {10}, 5e-6}, // a triangle
        {"Vv", {80}, 20e-6},   {"Smr", {}, c_nan},        {"Smr", {c_nan}, c_nan},
        {"Smc", {101}, c_nan}, {"Sdc", {10, -1}, c_nan},  {"Sdc", {10}, c_nan},
        {"Sa", {10}, c_nan},   {"Rmr", {0}, c_nan},       {"", {}, c_nan},
    };
    SSurface surface = MakeRamp(1);
    const auto isTemplate = [](const SRow& row) {
        return std::ranges::count(GetTemplates(), row.key, &SQuantity::key) > 0;
    };
    for (const SRow& row : rows) {
        ExpectValues({{row.key, ComputeTemplate(surface, row.key, row.values)}}, {{row.key, row.expected}});
        EXPECT_EQ(isTemplate(row) && std::isnan(row.expected), ExplainTemplate(row.key, row.values) != "")
            << row.key;
    }
    surface.heights.assign(1001, c_missing);
    EXPECT_TRUE(std::isnan(ComputeTemplate(surface, "Smr", std::vector{0.0})));
}

TEST(TemplateParameters, OfLines)
{
    const SRow rows[] = {
        {"Rmr", {250e-6}, 25},        {"Rdc", {10, 50}, 400e-6},     {"Rmr2", {5, 100e-6}, 15},
        {"Rmr2", {95, 100e-6}, 100},  {"4287Rmr2", {5, 0}, 5},       {"4287Wmr2", {5, 0}, 5},
        {"Rmr2", {101, 1e-6}, c_nan}, {"4287Rdc", {10, 120}, c_nan}, {"4287Xmr", {0}, c_nan},
        {"4287Ra", {0}, c_nan},       {"Smr", {0}, c_nan},
    };
    SSurface surface = MakeRamp(3);
    std::fill_n(surface.heights.begin(), 1001, c_missing);
    for (const SRow& row : rows) {
        const auto values = ComputeLineTemplates(surface, row.key, row.values);
        ASSERT_EQ(values.size(), 3u);
        EXPECT_TRUE(std::isnan(values[0])) << row.key;
        ExpectValues({{row.key, values[2]}}, {{row.key, row.expected}});
    }
}

TEST(TemplateParameters, OfTheFilteredProfiles)
{
    // 1 nm per point of tilt, 5 µm of waviness, 1 µm of roughness: of a sine, the material ratio at the
    // height c is acos(c / amplitude) / pi.
    const SSurface surface = MakeSurface(20000, 1, [&](double x, double) {
        return 1e-9 * x + 5e-6 * Wave(x + 1250, 5000) + 1e-6 * Wave(x, 47.3);
    });
    const double third = 100.0 / 3;
    const SRow rows[] = {
        {"4287Rmr", {0.5e-6}, third},
        {"4287Rdc", {third, 2 * third}, 1e-6},
        {"4287Wmr", {2.5e-6}, third},
        {"4287Wmr2", {third, 5e-6}, 2 * third},
        {"4287Wdc", {third, 2 * third}, 5e-6},
        {"4287Pdc", {0, 100}, 12e-6},
        {"4287Pmr", {0}, 50},
    };
    for (const SRow& row : rows)
        EXPECT_NEAR(ComputeLineTemplates(surface, row.key, row.values, 300e-6)[0] / row.expected, 1, 0.03)
            << row.key;
    for (const char* key : {"4287Rmr", "4287Wmr", "4287Pmr"})
        EXPECT_EQ(std::isnan(ComputeLineTemplates(surface, key, std::vector{0.0}, c_nan)[0]), key[4] != 'P');
}
