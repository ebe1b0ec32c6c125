#include "tests/model/PreferencesTesting.h"

#include <gtest/gtest.h>

using namespace CommonUI;
using CData = CRoughnessAnalysisPreferencesData;
using ERough = ERoughnessParameters;

namespace
{

// "Name(3) Name[Sub(2) Sub(1)]": groups with the numbers of their entries.
std::string Outline(const std::vector<SParameterGroup>& groups)
{
    std::string text;
    for (const SParameterGroup& group : groups) {
        text += (text.empty() ? "" : " ") + group.name.ToUtf8();
        if (!group.parameters.empty())
            text += "(" + std::to_string(group.parameters.size()) + ")";
        if (!group.subGroups.empty())
            text += "[" + Outline(group.subGroups) + "]";
    }
    return text;
}

CParameter PlugIn()
{
    return {5, u"Acme", u"Acme Roughness", u"Ac", 0, true, CParameter::EDimension::Area};
}

} // namespace

TEST(RoughnessPreferences, ParametersAreGroupedByStandardAndKind)
{
    CData image(EAnalysis::Roughness);
    EXPECT_EQ(Outline(image.GetParameterGroups(false)),
              "No Standard(1) VORN Classic[Height Parameters(10) Spatial Parameters(11) Hybrid Parameters(4) "
              "Functional Parameters(14) Feature Parameters(9)] Plug-in Parameters(1)");
    image.AddTemplateInstance(ERough::Sch, {5});
    image.AddParameter(0, PlugIn());
    EXPECT_EQ(Outline(image.GetParameterGroups(true)),
              "No Standard(1) VORN Classic[Height Parameters(10) Spatial Parameters(11) Hybrid Parameters(4) "
              "Functional Parameters(21) Feature Parameters(9)] Plug-in Parameters(2)");
    CData profile(EAnalysis::RoughnessProfile);
    profile.SetEnabledStandards({{EAnalysisStandards::VORNLegacy, false}, {EAnalysisStandards::None, false}});
    EXPECT_EQ(Outline(profile.GetParameterGroups(false)),
              "ISO 4287[Roughness Profile(11) Waviness Profile(11) Primary Profile(11)] ISO 13565-2(5) "
              "ISO 12085(11) MUFU(8) Plug-in Parameters(1)");
    EXPECT_EQ(Outline(image.GetOutputGroups()),
              "Functional Curves(1) Spectra(2) Curves by Angle(4) Results(4)");
    EXPECT_EQ(Outline(profile.GetCurveGroups()), "Functional Curves(2) Spectra(2)");
}

TEST(RoughnessPreferences, InstancesOfTemplatesAreCalledByTheirVariables)
{
    const std::tuple<EAnalysis, ERough, std::vector<double>, const char16_t*> rows[] = {
        {EAnalysis::Roughness, ERough::Sch, {95}, u"Sch(95 %)"},
        {EAnalysis::Roughness, ERough::Sch, {0.1}, u"Sch(0.1 %)"},
        {EAnalysis::Roughness, ERough::Smr, {-50e-9}, u"Smr(-50 nm)"},
        {EAnalysis::Roughness, ERough::Smr, {0}, u"Smr(0 nm)"},
        {EAnalysis::Roughness, ERough::Sdc, {10, 50}, u"Sdc(10 %, 50 %)"},
        {EAnalysis::RoughnessProfile, ERough::Iso4287Rmr2, {5, 1.5e-6}, u"Rmr(5 %, 1.5 µm)"},
    };
    for (const auto& [analysis, parent, values, symbol] : rows) {
        CData data(analysis);
        const int id = data.AddTemplateInstance(parent, values);
        EXPECT_EQ(id, 144);
        const CParameter made = data.GetParameter(id);
        EXPECT_EQ(made.GetShortFriendlyString(), symbol);
        EXPECT_TRUE(made.GetFriendlyString().StartsWith(symbol + CStr(u", ")));
        EXPECT_TRUE(made.IsOn());
        EXPECT_FALSE(data.GetParameter(static_cast<int>(parent)).IsOn());
        CInifile ini = PreferencesIni();
        data.Save(ini);
        CData loaded(analysis);
        loaded.Load(ini);
        EXPECT_EQ(loaded.GetParameter(144).GetFriendlyString(), made.GetFriendlyString());
        EXPECT_EQ(loaded.GetParameter(144).GetShortFriendlyString(), symbol);
    }
    CData data(EAnalysis::Roughness);
    EXPECT_EQ(data.AddTemplateInstance(ERough::Sch, {}), -1);
    EXPECT_EQ(data.AddTemplateInstance(ERough::Sa, {}), -1) << "no template";
    EXPECT_EQ(data.AddTemplateInstance(ERough::ProfileRdc, {1, 2}), -1) << "of the other analysis";
    EXPECT_FALSE(data.IsModified());
}

TEST(RoughnessPreferences, SettingParametersRestoresTheOrderOfTheCatalogue)
{
    CData data(EAnalysis::Roughness);
    data.AddTemplateInstance(ERough::Sch, {5});
    data.AddTemplateInstance(ERough::Sch, {95});
    const std::vector<int> ids = data.GetParameterIDs();
    std::vector<CParameter> parameters = data.GetParameters();
    std::ranges::reverse(parameters);
    for (CParameter& parameter : parameters)
        parameter.SetOn(true);
    EXPECT_TRUE(data.SetParameters(parameters));
    EXPECT_EQ(data.GetParameterIDs(), ids);
    EXPECT_FALSE(data.GetParameter(static_cast<int>(ERough::Sch)).IsOn());
    EXPECT_TRUE(data.GetParameter(145).IsOn());
}

TEST(RoughnessPreferences, UnknownNamesStayUntilTheirSettingIsChanged)
{
    const CDiagnosticsCapture warnings;
    const std::string stored = "FormRemoval=Spline\nBarChart_Parameter=Sfuture\nSa_P_Factor=Zepto\n"
                               "Sa_P_FloatFormat=Roman\nMUFU_FilterType=RGR0";
    CInifile ini = PreferencesIni("[A]\nWriteToFile=1\n" + stored + "\n");
    CData data(EAnalysis::Roughness);
    data.Load(ini);
    const CInifile fresh = ini;
    const auto saved = [&](const std::string& line) {
        data.Save(ini);
        return ini.GetBytes().find(line + "\n") != std::string::npos;
    };
    EXPECT_TRUE(saved(stored));
    EXPECT_TRUE(saved(stored)) << "once more";
    data.SetMUFUFilterType(EMUFUFilterType::None);
    EXPECT_TRUE(saved("Sa_P_FloatFormat=Roman\nMUFU_FilterType=None")) << "of another setting";

    const ERoughnessFormRemoval before = data.GetFormRemoval();
    data.SetFormRemoval(ERoughnessFormRemoval::Mean);
    CParameter sa = data.GetParameter(static_cast<int>(ERough::Sa));
    const CUnit::EUnitFactor factor = sa.GetUnitFactor();
    sa.SetUnitFactor(CUnit::EUnitFactor::Milli);
    data.SetParameter(static_cast<int>(ERough::Sa), sa);
    EXPECT_TRUE(
        saved("FormRemoval=Mean\nBarChart_Parameter=Sfuture\nSa_P_Factor=Milli\nSa_P_FloatFormat=Roman"));
    data.SetFormRemoval(before);
    sa.SetUnitFactor(factor);
    data.SetParameter(static_cast<int>(ERough::Sa), sa);
    EXPECT_TRUE(!saved("FormRemoval=Spline") && !saved("Sa_P_Factor=Zepto")) << "what is gone is gone";

    // What another content says is no business of what was read before.
    ini.LoadBytes(fresh.GetBytes());
    EXPECT_FALSE(saved("FormRemoval=Spline"));
    CInifile copy = fresh;
    data.SetFormRemoval(before);
    data.Save(copy);
    EXPECT_NE(copy.GetBytes().find("FormRemoval=Spline\n"), std::string::npos) << "a copy knows as much";
}

TEST(RoughnessPreferences, OwnChoicesAreStored)
{
    CData saved(EAnalysis::Roughness);
    saved.SetFormRemoval(ERoughnessFormRemoval::Parabola);
    saved.SetReportOption(ERoughnessReportOption::HTML);
    saved.SetMUFUFilterType(EMUFUFilterType::RGR0);
    saved.SetMUFUClosingCutOffRatio(EMUFUClosingCutOffRatio::Ratio1_5);
    const CData::SBarChartConfig config = {ERough::Sdq, 5, false, -1e-9, 1e-9, true, 0.1, 0.2};
    saved.SetBarChartConfig(config);
    CInifile ini = PreferencesIni();
    saved.Save(ini);
    CData loaded(EAnalysis::Roughness);
    loaded.Load(ini);
    EXPECT_EQ(loaded.GetBarChartConfig(), config);
    EXPECT_EQ(SavedBytes(loaded), ini.GetBytes());
    loaded.Reset();
    EXPECT_EQ(SavedBytes(loaded), SavedBytes(*MakePreferences(EAnalysis::Roughness)));

    const CDiagnosticsCapture warnings;
    CInifile bad = PreferencesIni("[A]\nWriteToFile=0\nFormRemoval=parabola\nMUFU_ClosingCutOffRatio=1.5\n"
                                  "BarChart_Parameter=Nope\nBarChart_BarCount=-5\nBarChart_Upper=inf\n");
    CData data(EAnalysis::Roughness);
    data.Load(bad);
    CData expected(EAnalysis::Roughness);
    CData::SBarChartConfig one = expected.GetBarChartConfig();
    one.barCount = 1;
    EXPECT_EQ(data.GetBarChartConfig(), one);
    EXPECT_EQ(data.GetFormRemoval(), expected.GetFormRemoval());
    EXPECT_EQ(warnings.GetCount(), 4);
}
