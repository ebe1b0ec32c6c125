// Every change fails at each of its allocations in turn: it is done in full, and told of, or not at all.
#include "model/ParameterList.h"
#include "tests/common/FailingAllocation.h"
#include "tests/model/ManagerTesting.h"
#include "tests/model/PreferencesTesting.h"

#include <gtest/gtest.h>

#include <functional>

using namespace CommonUI;
using CData = CAnalysisPreferencesData;

namespace
{

struct SChange {
    const char* what;
    std::function<void(CWatchedManager&)> call;
    bool isTold = true;
};

// Preferences that are not the defaults, nor modified.
std::unique_ptr<CData> OwnPreferences(EAnalysis analysis)
{
    std::unique_ptr<CData> data = MakePreferences(analysis);
    if (auto* roughness = dynamic_cast<CRoughnessAnalysisPreferencesData*>(data.get())) {
        roughness->AddTemplateInstance(ERoughnessParameters::Sch, {95});
        roughness->SetFormRemoval(ERoughnessFormRemoval::Parabola);
    }
    data->SetUnit(CUnit::FromText(u"a unit of some length"));
    data->ClearModified();
    return data;
}

void ExpectInFullOrNotAtAll(EAnalysis analysis, const SChange& change)
{
    for (CEachAllocation each; each.Next();) {
        SCOPED_TRACE(each.GetNumber());
        CWatchedManager manager;
        CData& data = manager._GetData(analysis);
        data.Assign(*OwnPreferences(analysis));
        data.ClearModified();
        const std::unique_ptr<CData> before = data.Clone();
        const bool isDone = each.Try([&] { change.call(manager); });
        EXPECT_EQ(data.Compare(*before) != CData::SDifferences(), isDone);
        EXPECT_TRUE(isDone || !data.IsModified());
        EXPECT_EQ(!manager.TakeChanges().empty(), isDone && change.isTold);
    }
}

// The current list with everything the other way.
std::vector<CParameter> Turned(std::vector<CParameter> list)
{
    for (CParameter& parameter : list)
        parameter.SetOn(!parameter.IsOn());
    return list;
}

} // namespace

TEST(WithoutMemory, PreferencesAreChangedInFullOrNotAtAll)
{
    for (const EAnalysis analysis : {EAnalysis::Roughness, EAnalysis::Measure, EAnalysis::Tip}) {
        const std::unique_ptr<CData> data = OwnPreferences(analysis);
        std::vector<CParameter> parameters = Turned(data->GetParameters());
        std::vector<CParameter> statistics = Turned(data->GetStatistics());
        std::vector<CParameter> outputs = Turned(data->GetOutputs());
        const std::unique_ptr<CData> other = MakePreferences(analysis);
        other->SetWriteToFile(!other->GetWriteToFile());
        CInifile ini = PreferencesIni();
        other->Save(ini);
        CInifile old = PreferencesIni("[A]\nOptionsHeightUnit=another unit of some length\n");
        const SChange changes[] = {
            {"data", [&](auto& manager) { manager.SetData(analysis, *other); }},
            {"parameters", [&](auto& manager) { manager.SetDataParameters(analysis, parameters); }},
            {"statistics", [&](auto& manager) { manager.SetDataStatistics(analysis, statistics); }},
            {"outputs", [&](auto& manager) { manager.SetDataOutputs(analysis, outputs); }},
            {"load", [&](auto& manager) { manager.LoadData(analysis, ini); }},
            {"load old", [&](auto& manager) { manager.LoadData(analysis, old); }},
            {"reset", [&](auto& manager) { manager._GetData(analysis).Reset(); }, false},
        };
        const CDiagnosticsCapture diagnostics;
        for (const SChange& change : changes) {
            SCOPED_TRACE(change.what);
            ExpectInFullOrNotAtAll(analysis, change);
        }
    }
}

TEST(WithoutMemory, EveryAnalysisThatIsLoadedIsToldOf)
{
    std::string bytes;
    for (int i = 0; i < c_analysisCount; ++i)
        bytes += "[A_" + CData::GetININame(EAnalysis{i}).ToUtf8() + "]\nWriteToFile=1\nUnitString=own unit\n";
    CInifile ini = PreferencesIni(bytes);
    for (CEachAllocation each(31); each.Next();) {
        CWatchedManager manager;
        const bool isDone = each.Try([&] { manager.Load(ini); });
        std::size_t loaded = 0;
        for (int i = 0; i < c_analysisCount; ++i)
            loaded += manager.GetData(EAnalysis{i}).GetUnit() == CUnit::FromText(u"own unit") ? 1 : 0;
        EXPECT_EQ(manager.TakeChanges().size(), 3 * loaded) << each.GetNumber();
        EXPECT_EQ(loaded == c_analysisCount, isDone) << each.GetNumber();
    }
}

TEST(WithoutMemory, AParameterListIsSavedInFullOrNotAtAll)
{
    const std::vector<CParameter> list = Turned(OwnPreferences(EAnalysis::Roughness)->GetParameters());
    const std::string before = "[A]\nSa_P_On=7\n[A_DynamicParameters]\nNumDynamicParameters=1\nother=1\n";
    for (CEachAllocation each; each.Next();) {
        std::vector<CParameter> saved = list;
        CInifile ini = PreferencesIni(before);
        if (each.Try([&] { SaveParameterList(saved, ini, EAnalysis::Roughness); }))
            continue;
        ASSERT_EQ(ini.GetBytes(), before) << each.GetNumber();
        ASSERT_EQ(ini.GetSection(), u"A") << each.GetNumber();
        ASSERT_TRUE(std::ranges::equal(saved, list, CParameter::IsSame)) << each.GetNumber();
    }
}

// Of several analyses none is replaced unless all are.
TEST(PreferencesWithoutMemory, AllAnalysesAreReplacedOrNone)
{
    CWatchedManager other;
    for (const EAnalysis analysis : {EAnalysis::Tip, EAnalysis::Roughness, EAnalysis::Measure})
        other._GetData(analysis).SetWriteToDB(!other._GetData(analysis).GetWriteToDB());
    for (CEachAllocation each; each.Next();) {
        CWatchedManager manager;
        const bool isDone = each.Try([&] { manager.Assign(other); });
        EXPECT_EQ(manager.TakeChanges().size(), isDone ? 3U : 0U);
        for (const EAnalysis analysis : {EAnalysis::Tip, EAnalysis::Roughness, EAnalysis::Measure}) {
            const bool isReplaced =
                manager.GetData(analysis).Compare(other.GetData(analysis)) == CData::SDifferences();
            EXPECT_EQ(isReplaced, isDone);
            EXPECT_EQ(manager.GetData(analysis).IsModified(), isDone);
        }
    }
}
