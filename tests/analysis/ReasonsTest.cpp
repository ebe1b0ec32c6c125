// Why quantities are not defined: each reason where it holds, and none for a value.
#include "analysis/areal/ArealParameters.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/grain/UndefinedGrain.h"
#include "analysis/numeric/Statistics.h"
#include "analysis/profile/ProfileParameters.h"
#include "analysis/profile/UndefinedProfile.h"
#include "tests/analysis/TestSurfaces.h"

#include <functional>
#include <string>
#include <vector>

using namespace CommonUI::Analysis;

namespace
{

using FHeight = std::function<double(double, double)>;

void ExpectReason(std::string_view reason, std::string_view part, double value)
{
    EXPECT_TRUE(std::isnan(value)) << value;
    EXPECT_NE(reason.find(part), reason.npos) << '"' << reason << '"';
    EXPECT_NE(reason.back(), '.');
}

std::vector<double> Heights(std::size_t count, const std::function<double(double)>& getHeight)
{
    return MakeSurface(count, 1, [&](double x, double) { return getHeight(x); }).heights;
}

} // namespace

TEST(Reasons, OfSurfaces)
{
    const FHeight flat = [](double, double) { return 1e-6; };
    const FHeight slope = [](double x, double) { return x * 1e-9; };
    const FHeight grating = [](double x, double) { return std::sin(x) * 1e-9; };
    const FHeight dots = [](double x, double y) { return std::fmod(x + y, 2) == 0 ? x * 1e-9 : c_missing; };
    const struct {
        std::size_t lines;
        FHeight height;
        const char* key;
        const char* reason;
    } rows[] = {{20, flat, "Ssk", "flat"},
                {20, flat, "Sku", "flat"},
                {20, flat, "Sal", "flat"},
                {20, flat, "Std", "flat"},
                {1, slope, "Sal", "single line"},
                {1, slope, "Std", "no wider than two spacings"},
                {20, grating, "Str", "does not fall to 0.2 in all directions"},
                {20, grating, "Str37", "does not fall to 0.37 in all directions"},
                {20, dots, "Sdq", "four neighbouring points"},
                {20, dots, "Sdr", "four neighbouring points"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        const std::vector<SValue> values = ComputeAreal(MakeSurface(20, row.lines, row.height));
        const auto found = std::ranges::find(values, row.key, &SValue::key);
        ExpectReason(found->reason, row.reason, found->value);
        for (const SValue& value : values)
            EXPECT_EQ(std::isnan(value.value), !value.reason.empty()) << value.key;
    }
}

TEST(Reasons, OfProfiles)
{
    const auto wave = [](double x) { return std::sin(x) * 1e-9; };
    const auto broken = Heights(100, [&](double x) { return x == 50 ? c_missing : wave(x); });
    const auto flat = Heights(100, [](double) { return 2e-9; });
    const auto slope = Heights(100, [](double x) { return x; });
    const struct {
        std::vector<double> heights;
        const char* key;
        double cutoff;
        const char* reason;
    } rows[] = {{Heights(100, [](double) { return c_missing; }), "Ra", 2e-5, "no valid point"},
                {flat, "Rsk", 2e-5, "flat"},
                {flat, "Rz", 2e-5, "flat"},
                {slope, "Rz", 2e-5, "five"},
                {slope, "RSm", 2e-5, "no whole element"},
                {broken, "RSm", 2e-5, "points are missing"},
                {broken, "4287Pc", 2e-5, "points are missing"},
                {Heights(5, wave), "Rdq", 2e-5, "seven neighbouring points"},
                {Heights(100, wave), "4287Ra", 1e-6, "two spacings"},
                {Heights(100, wave), "4287WSm", 1e-3, "longer than the surface"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        const double value = Get(ComputeProfile(row.heights, 1e-6, {.cutoff = row.cutoff}), row.key);
        ExpectReason(ExplainProfile(row.key, row.heights, 1e-6, {.cutoff = row.cutoff}), row.reason, value);
    }
    // Whatever is not defined has a reason.
    for (const auto& heights : {broken, flat, slope, Heights(5, wave), Heights(1, wave)})
        for (const SValue& value : ComputeProfile(heights, 1e-6))
            EXPECT_TRUE(!std::isnan(value.value) || !ExplainProfile(value.key, heights, 1e-6).empty())
                << value.key << ' ' << heights.size();
}

TEST(Reasons, OfGrainsAndStatistics)
{
    const SSurface one = MakeSurface(9, 9, [](double x, double y) { return x == 4 && y == 4 ? 1.0 : 0.0; });
    const struct {
        EGrainKind kind;
        const char* key;
        const char* reason;
    } rows[] = {{EGrainKind::Particle, "MaxDepth", "particles have no depths"},
                {EGrainKind::Particle, "CGVoidVolumeX", "particles have no depths"},
                {EGrainKind::Particle, "NearestNeighbourID", "no other grain"},
                {EGrainKind::Pore, "StdHeight", "pores have no heights"},
                {EGrainKind::Pore, "CGVolumeY", "pores have no heights"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        const SGrains grains = MeasureGrains(one, 0.5, row.kind);
        const auto found = std::ranges::find(grains.columns, row.key, &SValues::key);
        ExpectReason(ExplainGrain(row.key, row.kind), row.reason, found->values.at(0));
    }
    const struct {
        std::vector<double> values;
        const char* key;
        const char* reason;
    } statistics[] = {
        {{c_missing}, "Mean", "no value"}, {{3}, "Sd", "single value"}, {{-1, 1}, "SdPercent ", "mean is 0"}};
    for (const auto& row : statistics) {
        const std::vector<SValue> computed = ComputeStatistics(row.values);
        const auto found = std::ranges::find(computed, row.key, &SValue::key);
        ExpectReason(found->reason, row.reason, found->value);
    }
}
