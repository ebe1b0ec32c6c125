#include "tests/model/ManagerTesting.h"
#include "tests/model/PreferencesTesting.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

using namespace CommonUI;
using CManager = CAnalysisPreferencesManager;
using EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Tip, EAnalysis::Measure;
using EChange = EPreferencesChange;
using CRoughness = CRoughnessAnalysisPreferencesData;

namespace
{

CChanges AllKinds(EAnalysis analysis)
{
    return {{analysis, EChange::Parameters}, {analysis, EChange::Statistics}, {analysis, EChange::Outputs}};
}

} // namespace

TEST(AnalysisPreferencesManager, ObjectsAreOfTheirClassesAndStayTheSame)
{
    CManager& manager = GetAnalysisPreferencesManager();
    EXPECT_EQ(&manager, &GetAnalysisPreferencesManager());
    for (int i = 0; i < c_analysisCount; ++i) {
        const CAnalysisPreferencesData& kept = manager.GetData(EAnalysis{i});
        const auto made = MakePreferences(EAnalysis{i});
        const auto& fresh = *made;
        EXPECT_EQ(typeid(kept), typeid(fresh)) << i;
    }
    const auto* data = &manager.GetData(Tip);
    EXPECT_TRUE(manager.SetData(Tip, CAnalysisPreferencesData(Tip)));
    EXPECT_EQ(data, &manager.GetData(Tip));
}

// The stored keys and values of all analyses: a change here is a change of the format, which people's files
// are in.
TEST(AnalysisPreferencesManager, StoredKeysAreThoseOfTheGoldenFile)
{
    CWatchedManager manager;
    auto& image = dynamic_cast<CRoughness&>(manager._GetData(Roughness));
    image.AddTemplateInstance(ERoughnessParameters::Sch, {95});
    image.AddTemplateInstance(ERoughnessParameters::Sdc, {2.5, 50});
    image.AddParameter(142, {0, u"Acme", u"Acme Roughness", u"Ac", 6, true, CParameter::EDimension::Area});
    auto& grains = dynamic_cast<CGrainAnalysisPreferencesData&>(manager._GetData(Measure));
    grains.SetHistogramSetup(EMeasureParameters::Length, EGrainHistograms::Area,
                             {{0, 1e-6}, true, true, 50, 0});
    grains.AddParameter(3, grains.GetParameter(4));
    manager._GetData(Tip).SetUnit(CUnit(CUnit::EUnitFactor::Aangstroem));
    manager._GetData(Tip).SetPreprocessingNo(1);

    CInifile ini = PreferencesIni({}, u"Analysis");
    EXPECT_TRUE(manager.Save(ini));
    EXPECT_EQ(ini.GetSection(), u"Analysis");
    const std::string golden = ReadTestData("analysis-preferences.ini");
    EXPECT_TRUE(ini.GetBytes() == golden) << "compare tests/data/analysis-preferences.ini with\n"
                                          << ini.GetBytes();

    CManager loaded;
    CInifile again = PreferencesIni(golden, u"Analysis");
    EXPECT_TRUE(loaded.Load(again));
    EXPECT_TRUE(loaded.Load(again)) << "what was added by the first time goes";
    EXPECT_TRUE(loaded.Save(again));
    EXPECT_TRUE(again.GetBytes() == golden);
}

TEST(AnalysisPreferencesManager, EqualListsInAnyOrderChangeNothing)
{
    using FSetter = bool (CManager::*)(EAnalysis, std::vector<CParameter>&);
    using FGetter = std::vector<CParameter> (CAnalysisPreferencesData::*)() const;
    const std::tuple<EChange, FSetter, FGetter> rows[] = {
        {EChange::Parameters, &CManager::SetDataParameters, &CAnalysisPreferencesData::GetParameters},
        {EChange::Statistics, &CManager::SetDataStatistics, &CAnalysisPreferencesData::GetStatistics},
        {EChange::Outputs, &CManager::SetDataOutputs, &CAnalysisPreferencesData::GetOutputs},
    };
    for (const auto& [kind, set, get] : rows) {
        for (const EAnalysis analysis : {Roughness, Measure, Tip}) {
            CWatchedManager manager;
            const std::vector<CParameter> before = (manager.GetData(analysis).*get)();
            std::vector<CParameter> list = before;
            std::ranges::reverse(list);
            for (CParameter& parameter : list)
                parameter.SetOn(parameter.IsOn() || parameter.IsTemplate()); // which a template never is
            EXPECT_FALSE((manager.*set)(analysis, list));
            EXPECT_TRUE(std::ranges::is_sorted(list, {}, &CParameter::GetValue));
            EXPECT_TRUE(manager.TakeChanges().empty());
            EXPECT_FALSE(manager.GetData(analysis).IsModified());

            list.back().SetOn(!list.back().IsOn());
            EXPECT_TRUE((manager.*set)(analysis, list));
            EXPECT_EQ(manager.TakeChanges(), (CChanges{{analysis, kind}}));
            EXPECT_FALSE((manager.*set)(analysis, list));
            const std::vector<CParameter> after = (manager.GetData(analysis).*get)();
            EXPECT_TRUE(std::ranges::equal(after, before, {}, &CParameter::GetValue, &CParameter::GetValue))
                << "the order is the catalogue's again";
        }
    }
}

TEST(AnalysisPreferencesManager, EveryRealChangeIsAnnouncedOnce)
{
    CWatchedManager manager;
    const auto expectTold = [&](bool result, const CChanges& told, const std::function<bool()>& call) {
        EXPECT_EQ(call(), result);
        EXPECT_EQ(manager.TakeChanges(), told);
        EXPECT_EQ(call(), result);
        EXPECT_TRUE(manager.TakeChanges().empty()) << "what it already has";
    };
    expectTold(true, {{Tip, EChange::Parameters}}, [&] { return manager.SetDataParameterOn(Tip, 3, true); });
    expectTold(false, {}, [&] { return manager.SetDataParameterOn(Tip, 99, true); });
    const int sch = static_cast<int>(ERoughnessParameters::Sch);
    expectTold(true, {}, [&] { return manager.SetDataParameterOn(Roughness, sch, true); }); // a template
    expectTold(true, {{Tip, EChange::Parameters}}, [&] { return manager.SetDataPreprocessingNo(Tip, 2); });
    expectTold(false, {}, [&] { return manager.SetDataPreprocessingNo(Tip, 7); });
    const CRoughness::SBarChartConfig config{.barCount = 3};
    expectTold(true, {{Roughness, EChange::Outputs}},
               [&] { return manager.SetBarChartConfig(Roughness, config); });
    expectTold(false, {}, [&] { return manager.SetBarChartConfig(Tip, config); });
    expectTold(false, {}, [&] { return manager.SetData(Tip, CGrainAnalysisPreferencesData()); });
    std::vector<CParameter> unknown = {CParameter(99, u"", u"", u"", 0, true)};
    expectTold(true, {}, [&] { return manager.SetDataOutputs(Tip, unknown); });

    CInifile ini = PreferencesIni();
    EXPECT_TRUE(manager.SaveData(RoughnessProfile, ini));
    EXPECT_TRUE(manager.TakeChanges().empty());
    EXPECT_TRUE(manager.LoadData(RoughnessProfile, ini));
    EXPECT_EQ(manager.TakeChanges(), AllKinds(RoughnessProfile)) << "even of what it already has";
    EXPECT_TRUE(manager.Load(ini));
    EXPECT_EQ(manager.TakeChanges().size(), 30u);
}

TEST(AnalysisPreferencesManager, SetDataTellsOfTheKindsThatChanged)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const auto expectTold = [](const CChanges& told, const std::function<void(CRoughness&)>& edit) {
        CWatchedManager manager;
        CRoughness data(Roughness);
        edit(data);
        EXPECT_TRUE(manager.SetData(Roughness, data));
        EXPECT_EQ(manager.TakeChanges(), told);
        EXPECT_EQ(manager.GetData(Roughness).IsModified(), !told.empty());
        EXPECT_TRUE(manager.SetData(Roughness, *manager.GetData(Roughness).Clone()));
        EXPECT_TRUE(manager.TakeChanges().empty()) << "what it already has";
    };
    const auto ofParameter = [](auto edit) {
        return [edit](CRoughness& data) {
            CParameter parameter = data.GetParameter(1);
            edit(parameter);
            data.SetParameter(1, parameter);
        };
    };
    const std::function<void(CRoughness&)> parameterEdits[] = {
        ofParameter([](auto& parameter) { parameter.SetFriendlyString(u"x"); }),
        ofParameter([&](auto& parameter) {
            parameter.SetAxisRange({0, none});
        }),
        ofParameter([&](auto& parameter) {
            parameter.SetHistogramSetup(2, {{none, 1}, true, true, 5, 0});
        }),
        [&](auto& data) { data.AddTemplateInstance(ERoughnessParameters::Sch, {none}); },
        [](auto& data) { data.SetFormRemoval(ERoughnessFormRemoval::Parabola); },
        [](auto& data) { data.SetUnit(CUnit(CUnit::EUnitFactor::Aangstroem)); },
        [](auto& data) {
            data.SetEnabledStandards({{EAnalysisStandards::RoughnessPlugIns, false}});
        },
    };
    for (const auto& edit : parameterEdits)
        expectTold({{Roughness, EChange::Parameters}}, edit);
    const std::function<void(CRoughness&)> outputEdits[] = {
        [](auto& data) { data.SetWriteToFile(!data.GetWriteToFile()); },
        [&](auto& data) { data.SetBarChartConfig({.lower = none}); },
        [](auto& data) { data.SetReportOption(ERoughnessReportOption::HTML); },
    };
    for (const auto& edit : outputEdits)
        expectTold({{Roughness, EChange::Outputs}}, edit);
    expectTold({}, [](CRoughness&) {});
    expectTold(AllKinds(Roughness), [](CRoughness& data) {
        data.SetMUFUFilterType(EMUFUFilterType::None);
        data.SetStatsOn(data.GetStatisticIDs().front(), !data.GetStatistics().front().IsOn());
        data.SetOutputOn(1, !data.GetOutput(1).IsOn());
    });
}

TEST(AnalysisPreferencesManager, NumbersThatAreNoAnalysisThrow)
{
    CWatchedManager manager;
    const std::pair<const char16_t*, std::function<void(EAnalysis)>> rows[] = {
        {u"GetData", [&](EAnalysis none) { (void)manager.GetData(none); }},
        {u"_GetData", [&](EAnalysis none) { (void)manager._GetData(none); }},
        {u"SetDataParameterOn", [&](EAnalysis none) { manager.SetDataParameterOn(none, 0, true); }},
        {u"SetDataPreprocessingNo", [&](EAnalysis none) { manager.SetDataPreprocessingNo(none, 0); }},
    };
    for (const auto& [function, call] : rows) {
        for (const int none : {-1, 10})
            ExpectInternal([&] { call(EAnalysis{none}); }, u"CAnalysisPreferencesManager::" + CStr(function),
                           CStr::Format(u"Illegal Analysis value: %d", none));
    }
}
