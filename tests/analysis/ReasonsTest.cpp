// What quantities are where one may doubt it: a value, or none and why, and never one with the other.
#include "analysis/areal/ArealParameters.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/grain/UndefinedGrain.h"
#include "analysis/numeric/Statistics.h"
#include "analysis/profile/ProfileParameters.h"
#include "analysis/profile/UndefinedProfile.h"
#include "tests/analysis/TestProfiles.h"
#include "tests/TestData.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

void ExpectResult(const SValue& actual, const std::string& expected)
{
    const bool isNumber = std::isdigit(static_cast<unsigned char>(expected[0])) != 0;
    EXPECT_EQ(actual.reason, isNumber ? "" : expected);
    ExpectValues({actual}, {{actual.key, isNumber ? std::stod(expected) : c_undefined}});
}

const SValue& Find(const std::vector<SValue>& values, std::string_view key)
{
    return *std::ranges::find(values, key, &SValue::key);
}

} // namespace

// A line of the record: the heights by name, points, lines, the key, its value or the reason.
TEST(Reasons, OfSurfaces)
{
    const std::map<std::string, std::function<double(double, double)>> heights = {
        {"flat", [](double, double) { return 1e-6; }},
        {"slope", [](double x, double) { return 1e-9 * x; }},
        {"wave", [](double x, double) { return 1e-9 * std::sin(x); }},
        {"dots", [](double x, double y) { return std::fmod(x + y, 2) == 0 ? x * 1e-9 : c_missing; }}};
    for (const std::string& row : ReadTestLines("undefined-of-surfaces.txt")) {
        SCOPED_TRACE(row);
        const std::vector<std::string> cells = SplitText(row, '|');
        const std::vector<SValue> values =
            ComputeAreal(MakeSurface(std::stoul(cells[1]), std::stoul(cells[2]), heights.at(cells[0])));
        ExpectResult(Find(values, cells[3]), cells[4]);
        for (const SValue& value : values)
            EXPECT_EQ(std::isnan(value.value), !value.reason.empty()) << value.key;
    }
}

// Likewise: the heights by name, points, then the cut-off and the limits of motifs in points.
TEST(Reasons, OfProfiles)
{
    const std::map<std::string, std::function<double(double)>> heights = {
        {"missing", [](double) { return c_missing; }},
        {"flat", [](double) { return 2e-9; }},
        {"slope", [](double x) { return 2e-7 * x; }},
        {"gap", [](double x) { return x == 50 ? c_missing : Wave(x, 6); }},
        {"triangles", [](double x) { return 1e-7 * std::abs(std::remainder(x, 20)); }},
        {"groove", [](double x) { return 1e-6 * std::min(std::abs(x - 2000) / 20 - 1, 0.0); }}};
    for (const std::string& row : ReadTestLines("undefined-of-profiles.txt")) {
        SCOPED_TRACE(row);
        const std::vector<std::string> cells = SplitText(row, '|');
        const std::vector<double> profile = MakeProfile(std::stoul(cells[1]), heights.at(cells[0]));
        const std::vector<double> lengths = GetNumbers(cells[2]);
        const SProfileMethod method{.cutoff = lengths[0] * c_dx,
                                    .motifLimits = SMotifLimits{lengths[1] * c_dx, lengths[2] * c_dx}};
        for (SValue value : ComputeProfile(profile, c_dx, method)) {
            if (std::isnan(value.value))
                value.reason = ExplainProfile(value.key, profile, c_dx, method);
            EXPECT_EQ(std::isnan(value.value), !value.reason.empty()) << value.key;
            if (value.key == cells[3])
                ExpectResult(value, cells[4]);
        }
    }
}

// A line of the record: the kind, the key and the reason.
TEST(Reasons, OfGrainsAndStatistics)
{
    const SSurface one = MakeSurface(9, 9, [](double x, double y) { return x == 4 && y == 4 ? 1.0 : 0.0; });
    for (const std::string& row : ReadTestLines("undefined-of-grains.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const EGrainKind kind = cells[0] == "pore" ? EGrainKind::Pore : EGrainKind::Particle;
        const std::string_view keys[] = {cells[1]};
        const double value = MeasureGrains(one, 0.5, kind, keys).columns.at(0).values.at(0);
        ExpectResult({cells[1], value, ExplainGrain(cells[1], kind)}, cells[2]);
    }
    ExpectResult(Find(ComputeStatistics(std::vector{c_missing}), "Mean"), "there is no value");
    ExpectResult(Find(ComputeStatistics(std::vector{3.0}), "Sd"), "there is a single value");
    ExpectResult(Find(ComputeStatistics(std::vector{-1.0, 1.0}), "SdPercent "), "the mean is 0");
}
