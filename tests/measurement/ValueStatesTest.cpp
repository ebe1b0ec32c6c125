#include "analysis/numeric/SingleThread.h"
#include "measurement/data/ReportData.h"
#include "measurement/detail/ComputeApart.h"
#include "measurement/ReportTables.h"
#include "model/Enumerations.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/common/FailingAllocation.h"
#include "tests/StrictJson.h"

#include <set>

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

CParameter PlugIn()
{
    return {500,
            u"Theirs",
            u"Theirs, Supplied",
            u"Theirs",
            static_cast<int>(EAnalysisStandards::RoughnessPlugIns),
            true,
            CParameter::EDimension::Length};
}

} // namespace

TEST(ValueStates, WhatFailsIsFoundAndTheRestIsComputed)
{
    const std::pair<std::size_t, std::set<std::size_t>> rows[] = {
        {0, {}}, {1, {0}}, {7, {}}, {7, {0, 3, 6}}, {2, {0, 1}}};
    for (const auto& [count, failing] : rows) {
        std::set<std::size_t> computed;
        const auto failures = ComputeApart(count, [&](std::size_t first, std::size_t last) {
            for (std::size_t i = first; i < last; ++i)
                if (failing.contains(i))
                    throw std::runtime_error("a fit does not converge");
            for (std::size_t i = first; i < last; ++i)
                EXPECT_TRUE(computed.insert(i).second);
        });
        EXPECT_EQ(computed.size() + failing.size(), count);
        ASSERT_EQ(failures.size(), failing.size());
        for (const auto& [index, state] : failures) {
            EXPECT_TRUE(failing.contains(index));
            EXPECT_EQ(state, (SValueState{EValueState::Failed, u"failed: a fit does not converge"}));
        }
    }
    const auto throwNoPoints = [](std::size_t, std::size_t) { throw Analysis::ENoPoints(); };
    EXPECT_THROW(ComputeApart(3, throwNoPoints), Analysis::ENoPoints);
}

TEST(ValueStates, ParametersOfASurfaceFailWithoutTheOthers)
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
    for (const std::size_t i : {0, 2, 4})
        EXPECT_EQ(results.surface[i].values, all.surface[i].values) << i;
    const CReportTables tables(results, false);
    EXPECT_EQ(tables.GetSurfaceNotes().GetLines(), std::vector<CStr>{u"1 Sal, Spd: " + c_noMemory});
    EXPECT_TRUE(tables.GetText().find("failed") == std::string::npos) << "the cells are empty";
}

TEST(ValueStates, ColumnsOfProfilesFailWithoutTheOthers)
{
    const SInput input{.surface =
                           MakeSurface(5000, 2, [](double x, double y) { return std::sin(x * x + y); })};
    const SRequest request{.method = {.cutoff = 3e-6}, .keys = {u"Ra", u"p12085_Rr", u"4287Rmr(0)", u"rMd"}};
    // The filter's transform takes 131 kB, the robust reference line more.
    const SResults results = Compute(input, request, 160'000);
    EXPECT_EQ(FailuresOf(results.columns), "rMd ");
    EXPECT_EQ(results.CountFailures(), 1u);
    const SResults all = Compute(input, request, SIZE_MAX);
    for (const std::size_t i : {0, 1, 3})
        EXPECT_EQ(results.columns[i].values, all.columns[i].values) << i;
    const CReportTables tables(results, false);
    EXPECT_EQ(tables.GetStatisticsNotes().GetLines(), std::vector<CStr>{u"1 rMd MUFU: " + c_noMemory});
    EXPECT_EQ(FailuresOf(Compute(input, request, 100'000).columns), "Ra R rMd Rmr(0 nm) ");
}

// What fails once is computed in the second attempt.
TEST(ValueStates, GrainsAreMeasuredOrRefusedWhateverAllocationFails)
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

TEST(ValueStates, WhatPlugInsSupplyIsACellThatSaysSo)
{
    const CStr reason = u"not computed, as plug-ins supply it";
    CAnalysisPreferencesManager manager;
    for (const EAnalysis analysis : {EAnalysis::Roughness, EAnalysis::RoughnessProfile}) {
        const auto data = manager.GetData(analysis).Clone();
        data->AddParameter(0, PlugIn());
        manager.SetData(analysis, *data);
    }
    const SChoices choices = MakeChoices(manager, {.keys = {u"Sa", u"Ra", u"Theirs"}});
    for (const std::size_t lines : {std::size_t{1}, std::size_t{3}}) {
        const SInput input{.surface =
                               MakeSurface(20, lines, [](double x, double y) { return std::sin(x + y); })};
        const SResults results = ComputeResults(input, choices);
        EXPECT_EQ(results.surface.back().exceptions.front().state,
                  (SValueState{EValueState::NotComputed, reason}));
        EXPECT_EQ(results.CountFailures(), 0u);
        const CReportTables tables(results, false);
        EXPECT_EQ(tables.GetSurfaceNotes().GetLines(), std::vector<CStr>{u"1 Theirs: " + reason});
        std::string text;
        WriteJson(results, [&text](std::string_view piece) { text += piece; });
        const SJson json = CStrictJson::Parse(text);
        const SJson& row = json[lines == 1 ? "profile" : "surface"][1];
        EXPECT_EQ(row["key"].text + " " + row["reason"].text, "Theirs " + reason.ToUtf8());
        EXPECT_TRUE(row["value"].IsNull());
        if (lines == 1)
            continue;
        EXPECT_EQ(tables.GetRowNotes().GetLines(), tables.GetStatisticsNotes().GetLines());
        EXPECT_EQ(json["rows"]["columns"][1]["missing"][0]["rows"].elements.size(), 3u);
        EXPECT_EQ(json["rows"]["columns"][1]["missing"][0]["reason"].text, reason.ToUtf8());
    }
}
