#include "measurement/data/ReportData.h"
#include "measurement/detail/ComputeApart.h"
#include "measurement/ReportTables.h"
#include "model/Enumerations.h"
#include "tests/analysis/TestSurfaces.h"
#include "tests/StrictJson.h"

#include <set>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;

namespace
{

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
