// Every change fails at each of its allocations in turn: it is done in full, and told of, or not at all.
#include "model/AnalysisPreferencesManager.h"
#include "model/ParameterList.h"
#include "tests/common/FailingAllocation.h"
#include "tests/model/PreferencesTesting.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>

using namespace CommonUI;
using CData = CAnalysisPreferencesData;

namespace
{

class COpenManager : public CAnalysisPreferencesManager
{
public:
    using CAnalysisPreferencesManager::_GetData;
};

class CCounter
{
public:
    void OnChange(const SPreferencesChange&) { ++m_count; }
    int GetCount() const { return m_count; }

private:
    int m_count = 0;
};

struct SChange {
    const char* what;
    std::function<void(COpenManager&)> call;
    bool isTold;
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

// @return whether the change failed
bool FailsAt(int allocation, EAnalysis analysis, const SChange& change)
{
    COpenManager manager;
    CData& data = manager._GetData(analysis);
    data.Assign(*OwnPreferences(analysis));
    data.ClearModified();
    const std::unique_ptr<CData> before = data.Clone();
    CCounter listener;
    CClosureConnection connection;
    manager.GetChangeList().Subscribe(listener, &CCounter::OnChange, connection);
    bool failed = false;
    try {
        const CFailingAllocation failing(allocation);
        change.call(manager);
        failed = failing.HasFailed();
    } catch (const std::bad_alloc&) {
        EXPECT_EQ(data.Compare(*before), CData::SDifferences()) << allocation;
        EXPECT_FALSE(data.IsModified()) << allocation;
        EXPECT_EQ(listener.GetCount(), 0) << allocation;
        return true;
    }
    EXPECT_NE(data.Compare(*before), CData::SDifferences()) << allocation;
    EXPECT_EQ(listener.GetCount() > 0, change.isTold) << allocation;
    return failed;
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
            {"data", [&](auto& manager) { manager.SetData(analysis, *other); }, true},
            {"parameters", [&](auto& manager) { manager.SetDataParameters(analysis, parameters); }, true},
            {"statistics", [&](auto& manager) { manager.SetDataStatistics(analysis, statistics); }, true},
            {"outputs", [&](auto& manager) { manager.SetDataOutputs(analysis, outputs); }, true},
            {"load", [&](auto& manager) { manager.LoadData(analysis, ini); }, true},
            {"load old", [&](auto& manager) { manager.LoadData(analysis, old); }, true},
            {"reset", [&](auto& manager) { manager._GetData(analysis).Reset(); }, false},
        };
        const CDiagnosticsCapture diagnostics;
        for (const SChange& change : changes) {
            if ((change.what == std::string_view("outputs") && outputs.empty()) ||
                (change.what == std::string_view("statistics") && statistics.empty()))
                continue;
            SCOPED_TRACE(change.what);
            for (int allocation = 1; FailsAt(allocation, analysis, change); ++allocation) {
            }
        }
    }
}

TEST(WithoutMemory, EveryAnalysisThatIsLoadedIsToldOf)
{
    std::string bytes;
    for (int i = 0; i < c_analysisCount; ++i)
        bytes += "[A_" + CData::GetININame(EAnalysis{i}).ToUtf8() + "]\nWriteToFile=1\nUnitString=own unit\n";
    CInifile ini = PreferencesIni(bytes);
    bool failed = true;
    for (int allocation = 1; failed; allocation += 31) {
        COpenManager manager;
        CCounter listener;
        CClosureConnection connection;
        manager.GetChangeList().Subscribe(listener, &CCounter::OnChange, connection);
        try {
            const CFailingAllocation failing(allocation);
            manager.Load(ini);
            failed = failing.HasFailed();
        } catch (const std::bad_alloc&) {
        }
        int loaded = 0;
        for (int i = 0; i < c_analysisCount; ++i)
            loaded += manager.GetData(EAnalysis{i}).GetUnit() == CUnit::FromText(u"own unit") ? 1 : 0;
        EXPECT_EQ(listener.GetCount(), 3 * loaded) << allocation;
        EXPECT_TRUE(failed || loaded == c_analysisCount);
    }
}

TEST(WithoutMemory, AParameterListIsSavedInFullOrNotAtAll)
{
    const std::vector<CParameter> list = Turned(OwnPreferences(EAnalysis::Roughness)->GetParameters());
    const std::string before = "[A]\nSa_P_On=7\n[A_DynamicParameters]\nNumDynamicParameters=1\nother=1\n";
    bool failed = true;
    for (int allocation = 1; failed; ++allocation) {
        std::vector<CParameter> saved = list;
        CInifile ini = PreferencesIni(before);
        try {
            const CFailingAllocation failing(allocation);
            SaveParameterList(saved, ini, EAnalysis::Roughness);
            failed = failing.HasFailed();
        } catch (const std::bad_alloc&) {
            ASSERT_EQ(ini.GetBytes(), before) << allocation;
            ASSERT_EQ(ini.GetSection(), u"A") << allocation;
            ASSERT_TRUE(std::ranges::equal(saved, list, CParameter::IsSame)) << allocation;
        }
    }
}
