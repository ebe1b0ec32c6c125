#include "model/AnalysisPreferencesManager.h"
#include "common/Exceptions.h"
#include "tests/model/PreferencesTesting.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

using namespace CommonUI;
using CManager = CAnalysisPreferencesManager;
using EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Tip, EAnalysis::Measure;
using EChange = EPreferencesChange;

namespace
{

class CListener
{
public:
    explicit CListener(CManager& manager)
    {
        manager.GetChangeList().Subscribe(*this, &CListener::OnChange, m_connection);
    }
    // The changes since the last call.
    std::vector<SPreferencesChange> Take() { return std::exchange(m_changes, {}); }

private:
    void OnChange(const SPreferencesChange& change) { m_changes.push_back(change); }

    std::vector<SPreferencesChange> m_changes;
    CClosureConnection m_connection;
};

std::vector<SPreferencesChange> AllKinds(EAnalysis analysis)
{
    return {{analysis, EChange::Parameters}, {analysis, EChange::Statistics}, {analysis, EChange::Outputs}};
}

class COpenManager : public CManager
{
public:
    using CManager::_GetData;
};

} // namespace

TEST(AnalysisPreferencesManager, ObjectsAreOfTheirClassesAndStayTheSame)
{
    CManager& manager = GetAnalysisPreferencesManager();
    EXPECT_EQ(&manager, &GetAnalysisPreferencesManager());
    for (int i = 0; i < c_analysisCount; ++i)
        EXPECT_EQ(typeid(manager.GetData(EAnalysis{i})), typeid(*MakePreferences(EAnalysis{i}))) << i;
    const auto* data = &manager.GetData(Tip);
    EXPECT_TRUE(manager.SetData(Tip, CAnalysisPreferencesData(Tip)));
    EXPECT_EQ(data, &manager.GetData(Tip));
}

// The stored keys and values of all analyses: a change here is a change of the format, which people's files
// are in.
TEST(AnalysisPreferencesManager, StoredKeysAreThoseOfTheGoldenFile)
{
    COpenManager manager;
    auto& image = dynamic_cast<CRoughnessAnalysisPreferencesData&>(manager._GetData(Roughness));
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
    const struct {
        EChange kind;
        FSetter set;
        std::vector<CParameter> (CAnalysisPreferencesData::*get)() const;
    } rows[] = {
        {EChange::Parameters, &CManager::SetDataParameters, &CAnalysisPreferencesData::GetParameters},
        {EChange::Statistics, &CManager::SetDataStatistics, &CAnalysisPreferencesData::GetStatistics},
        {EChange::Outputs, &CManager::SetDataOutputs, &CAnalysisPreferencesData::GetOutputs},
    };
    for (const auto& row : rows) {
        for (const EAnalysis analysis : {Roughness, Measure, Tip}) {
            CManager manager;
            CListener listener(manager);
            const std::vector<CParameter> before = (manager.GetData(analysis).*row.get)();
            std::vector<CParameter> list = before;
            std::ranges::reverse(list);
            EXPECT_FALSE((manager.*row.set)(analysis, list));
            EXPECT_TRUE(std::ranges::is_sorted(list, {}, &CParameter::GetValue));
            EXPECT_TRUE(listener.Take().empty());
            EXPECT_FALSE(manager.GetData(analysis).IsModified());

            list.back().SetOn(!list.back().IsOn());
            EXPECT_TRUE((manager.*row.set)(analysis, list));
            EXPECT_EQ(listener.Take(), (std::vector<SPreferencesChange>{{analysis, row.kind}}));
            EXPECT_FALSE((manager.*row.set)(analysis, list));
            const std::vector<CParameter> after = (manager.GetData(analysis).*row.get)();
            EXPECT_TRUE(std::ranges::equal(after, before, {}, &CParameter::GetValue, &CParameter::GetValue))
                << "the order is the catalogue's again";
        }
    }
    CManager manager;
    CListener listener(manager);
    std::vector<CParameter> unknown = {CParameter(99, u"", u"", u"", 0, true)};
    EXPECT_TRUE(manager.SetDataOutputs(Tip, unknown));
    EXPECT_TRUE(listener.Take().empty());
}

TEST(AnalysisPreferencesManager, EveryRealChangeIsAnnouncedOnce)
{
    CManager manager;
    CListener listener(manager);
    CRoughnessAnalysisPreferencesData::SBarChartConfig config;
    config.barCount = 3;
    CInifile ini = PreferencesIni();
    const struct {
        const char* what;
        std::function<bool()> call;
        bool result;
        std::vector<SPreferencesChange> first;
        std::vector<SPreferencesChange> again;
    } rows[] = {
        {"on",
         [&] { return manager.SetDataParameterOn(Tip, 3, true); },
         true,
         {{Tip, EChange::Parameters}},
         {}},
        {"absent", [&] { return manager.SetDataParameterOn(Tip, 99, true); }, false, {}, {}},
        {"preprocessing",
         [&] { return manager.SetDataPreprocessingNo(Tip, 2); },
         true,
         {{Tip, EChange::Parameters}},
         {}},
        {"no option", [&] { return manager.SetDataPreprocessingNo(Tip, 7); }, false, {}, {}},
        {"chart",
         [&] { return manager.SetBarChartConfig(Roughness, config); },
         true,
         {{Roughness, EChange::Outputs}},
         {}},
        {"no chart", [&] { return manager.SetBarChartConfig(Tip, config); }, false, {}, {}},
        {"other data", [&] { return manager.SetData(Tip, CGrainAnalysisPreferencesData()); }, false, {}, {}},
        {"load", [&] { return manager.LoadData(RoughnessProfile, ini); }, true, AllKinds(RoughnessProfile),
         AllKinds(RoughnessProfile)},
        {"save", [&] { return manager.SaveData(RoughnessProfile, ini); }, true, {}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.call(), row.result);
        EXPECT_EQ(listener.Take(), row.first);
        EXPECT_EQ(row.call(), row.result);
        EXPECT_EQ(listener.Take(), row.again);
    }
    EXPECT_TRUE(manager.Load(ini));
    EXPECT_EQ(listener.Take().size(), 30u);
}

TEST(AnalysisPreferencesManager, SetDataTellsOfTheKindsThatChanged)
{
    using CRoughness = CRoughnessAnalysisPreferencesData;
    const std::vector<SPreferencesChange> parameters = {{Roughness, EChange::Parameters}};
    const std::vector<SPreferencesChange> outputs = {{Roughness, EChange::Outputs}};
    const double none = std::numeric_limits<double>::quiet_NaN();
    const auto change = [](CRoughness& data, auto edit) {
        CParameter parameter = data.GetParameter(1);
        edit(parameter);
        data.SetParameter(1, parameter);
    };
    CRoughness::SBarChartConfig noRange;
    noRange.lower = none;
    const struct {
        const char* what;
        std::function<void(CRoughness&)> edit;
        std::vector<SPreferencesChange> told;
    } rows[] = {
        {"nothing", [](CRoughness&) {}, {}},
        {"title", [&](CRoughness& data) { change(data, [](CParameter& p) { p.SetFriendlyString(u"x"); }); },
         parameters},
        {"axis", [&](CRoughness& data) { change(data, [&](CParameter& p) {
                                             p.SetAxisRange({0, none});
                                         }); },
         parameters},
        {"histogram",
         [&](CRoughness& data) {
             change(data, [&](CParameter& p) { p.SetHistogramSetup(2, {{none, 1}, true, true, 5, 0}); });
         },
         parameters},
        {"instance", [&](CRoughness& data) { data.AddTemplateInstance(ERoughnessParameters::Sch, {none}); },
         parameters},
        {"form removal", [](CRoughness& data) { data.SetFormRemoval(ERoughnessFormRemoval::Parabola); },
         parameters},
        {"unit", [](CRoughness& data) { data.SetUnit(CUnit(CUnit::EUnitFactor::Aangstroem)); }, parameters},
        {"standard",
         [](CRoughness& data) {
             data.SetEnabledStandards({{EAnalysisStandards::RoughnessPlugIns, false}});
         },
         parameters},
        {"file", [](CRoughness& data) { data.SetWriteToFile(!data.GetWriteToFile()); }, outputs},
        {"chart", [&](CRoughness& data) { data.SetBarChartConfig(noRange); }, outputs},
        {"report", [](CRoughness& data) { data.SetReportOption(ERoughnessReportOption::HTML); }, outputs},
        {"all",
         [](CRoughness& data) {
             data.SetMUFUFilterType(EMUFUFilterType::None);
             data.SetStatsOn(data.GetStatisticIDs().front(), !data.GetStatistics().front().IsOn());
             data.SetOutputOn(1, !data.GetOutput(1).IsOn());
         },
         AllKinds(Roughness)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CManager manager;
        CListener listener(manager);
        CRoughness data(Roughness);
        row.edit(data);
        EXPECT_TRUE(manager.SetData(Roughness, data));
        EXPECT_EQ(listener.Take(), row.told);
        EXPECT_EQ(manager.GetData(Roughness).IsModified(), !row.told.empty());
        EXPECT_TRUE(manager.SetData(Roughness, *manager.GetData(Roughness).Clone()));
        EXPECT_TRUE(listener.Take().empty()) << "what it already has";
    }
}

TEST(AnalysisPreferencesManager, NumbersThatAreNoAnalysisThrow)
{
    COpenManager manager;
    const struct {
        const char16_t* function;
        std::function<void(EAnalysis)> call;
    } rows[] = {
        {u"GetData", [&](EAnalysis none) { (void)manager.GetData(none); }},
        {u"_GetData", [&](EAnalysis none) { (void)manager._GetData(none); }},
        {u"SetDataParameterOn", [&](EAnalysis none) { manager.SetDataParameterOn(none, 0, true); }},
        {u"SetDataPreprocessingNo", [&](EAnalysis none) { manager.SetDataPreprocessingNo(none, 0); }},
    };
    for (const auto& row : rows) {
        for (const int none : {-1, 10}) {
            try {
                row.call(EAnalysis{none});
                ADD_FAILURE() << none;
            } catch (const EInternal& error) {
                EXPECT_EQ(error.GetFunction(), u"CAnalysisPreferencesManager::" + CStr(row.function));
                EXPECT_EQ(error.GetMessageText(), CStr::Format(u"Illegal Analysis value: %d", none));
            }
        }
    }
}

TEST(AnalysisPreferencesManager, SwitchingATemplateOnIsNoChange)
{
    CAnalysisPreferencesManager manager;
    std::vector<CParameter> list = manager.GetData(EAnalysis::Roughness).GetParameters();
    for (CParameter& parameter : list) {
        if (parameter.IsTemplate())
            parameter.SetOn(true);
    }
    EXPECT_FALSE(manager.SetDataParameters(EAnalysis::Roughness, list));
    const int sch = static_cast<int>(ERoughnessParameters::Sch);
    EXPECT_TRUE(manager.SetDataParameterOn(EAnalysis::Roughness, sch, true));
    EXPECT_FALSE(manager.GetData(EAnalysis::Roughness).IsParameterOn(sch));
}
