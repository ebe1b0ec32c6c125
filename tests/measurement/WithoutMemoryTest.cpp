#include "analysis/numeric/SingleThread.h"
#include "measurement/data/ReportData.h"
#include "measurement/ReportTables.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/common/FailingAllocation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;

namespace
{

const CStr c_noMemory = u"failed: there is not enough memory";

// The symbols of the parameters that failed, for lack of memory.
std::string FailuresOf(const std::vector<SColumn>& columns)
{
    std::string symbols;
    for (const SColumn& column : columns) {
        const SValueState state = column.exceptions.empty() ? column.absent : column.exceptions.back().state;
        if (state.state != EValueState::Failed)
            continue;
        EXPECT_EQ(state.reason, c_noMemory);
        EXPECT_TRUE(std::ranges::all_of(column.values, [](double value) { return std::isnan(value); }));
        symbols += column.parameter.GetShortFriendlyString().ToUtf8() + ' ';
    }
    return symbols;
}

SResults Compute(const SInput& input, const SRequest& request, std::size_t mostBytes)
{
    const Analysis::CSingleThread single;
    const SChoices choices = MakeChoices(CAnalysisPreferencesManager(), request);
    const CAllocationLimit limit(mostBytes);
    return ComputeResults(input, choices);
}

} // namespace

TEST(WithoutMemory, ParametersOfASurfaceFailWithoutTheOthers)
{
    SInput input{.surface = MakeSurface(64, 64, [](double x, double y) { return std::sin(x * x + 3 * y); })};
    input.raw = input.surface;
    const SRequest request{.keys = {u"Sa", u"Sal", u"Std", u"Spd", u"Smc(10)"}};
    // The heights take 32 kB; transforms are of four times as many, and complex.
    const SResults results = Compute(input, request, 50'000);
    EXPECT_EQ(FailuresOf(results.surface), "Sal Spd ");
    EXPECT_EQ(results.surface[1].exceptions.size(), 2u) << "of the raw surface, too";
    EXPECT_EQ(results.CountFailures(), 2u);
    const SResults all = Compute(input, request, SIZE_MAX);
    for (const std::size_t i : {0u, 2u, 4u})
        EXPECT_EQ(results.surface[i].values, all.surface[i].values) << i;
    const CReportTables tables(results, false);
    EXPECT_EQ(tables.GetSurfaceNotes().GetLines(), std::vector<CStr>{u"1 Sal, Spd: " + c_noMemory});
    EXPECT_TRUE(tables.GetText().find("failed") == std::string::npos) << "the cells are empty";
}

TEST(WithoutMemory, ColumnsOfProfilesFailWithoutTheOthers)
{
    const SInput input{.surface =
                           MakeSurface(5000, 2, [](double x, double y) { return std::sin(x * x + y); })};
    const SRequest request{.method = {.cutoff = 3e-6}, .keys = {u"Ra", u"p12085_Rr", u"4287Rmr(0)", u"rMd"}};
    // The filter's transform takes 131 kB, the robust reference line more.
    const SResults results = Compute(input, request, 160'000);
    EXPECT_EQ(FailuresOf(results.columns), "rMd ");
    EXPECT_EQ(results.CountFailures(), 1u);
    const SResults all = Compute(input, request, SIZE_MAX);
    for (const std::size_t i : {0u, 1u, 3u})
        EXPECT_EQ(results.columns[i].values, all.columns[i].values) << i;
    const CReportTables tables(results, false);
    EXPECT_EQ(tables.GetStatisticsNotes().GetLines(), std::vector<CStr>{u"1 rMd MUFU: " + c_noMemory});
    EXPECT_EQ(FailuresOf(Compute(input, request, 100'000).columns), "Ra R rMd Rmr(0 nm) ");
}

// What fails once is computed in the second attempt.
TEST(WithoutMemory, GrainsAreMeasuredOrRefusedWhateverAllocationFails)
{
    const Analysis::CSingleThread single;
    const SInput input{
        .surface = MakeSurface(12, 12, [](double x, double y) { return std::sin(x * 2) * std::sin(y * 2); })};
    const SChoices choices = MakeChoices(
        CAnalysisPreferencesManager(), {.method = {.grains = SGrainLimit{0, Analysis::EGrainKind::Particle}},
                                        .keys = {u"AreaExHoles", u"TotalFiberLength", u"MaxFeret"}});
    const SResults all = ComputeResults(input, choices);
    int done = 0;
    for (CEachAllocation each; each.Next();) {
        SResults results;
        if (!each.Try([&] { results = ComputeResults(input, choices); }))
            continue;
        ++done;
        ASSERT_EQ(results.columns.size(), all.columns.size());
        for (std::size_t i = 0; i < all.columns.size(); ++i) {
            EXPECT_EQ(results.columns[i].values, all.columns[i].values) << each.GetNumber();
            EXPECT_EQ(results.columns[i].statistics.back().value, all.columns[i].statistics.back().value);
        }
    }
    EXPECT_GT(done, 10);
}
