#include "settings/readers/RoughnessSettings.h"

#include "tests/settings/SettingsTesting.h"

using namespace CommonUI;

namespace
{

using CData = CRoughnessAnalysisPreferencesData;

std::string TextOf(const CData& data)
{
    CInifile ini;
    SaveRoughnessSettings(data, ini);
    return ini.GetBytes();
}

} // namespace

TEST(RoughnessSettings, KeepMadeParametersAndAllChoices)
{
    CData data(EAnalysis::Roughness);
    data.AddTemplateInstance(ERoughnessParameters::Sch, {95});
    data.SetFormRemoval(ERoughnessFormRemoval::Parabola);
    CInifile ini = Document(CStr::FromUtf8(TextOf(data)));
    EXPECT_TRUE(data.IsModified());

    CData read(EAnalysis::Roughness);
    read.SetParameterOn(static_cast<int>(ERoughnessParameters::Sdr), false);
    read.SetAllowed({.plugIns = true});
    read.ClearModified();
    EXPECT_TRUE(LoadRoughnessSettings(ini, read));
    EXPECT_EQ(TextOf(read), TextOf(data));
    EXPECT_TRUE(read.IsModified());
    EXPECT_TRUE(read.GetAllowed().plugIns);
}

TEST(RoughnessSettings, DefaultsForWhatIsNotSaid)
{
    CData read(EAnalysis::RoughnessProfile);
    read.SetFormRemoval(ERoughnessFormRemoval::Parabola);
    CInifile ini = Document(u"[Analysis_RoughnessProfileAnalysis]\nWriteToFile=1\nReportOption=Telex\n");
    CDiagnosticsCapture refusals(u"Inifile");
    EXPECT_TRUE(LoadRoughnessSettings(ini, read));
    EXPECT_EQ(refusals.Take(), std::vector<CStr>{u"Preferences: ReportOption: there is no \"Telex\""});
    CData expected(EAnalysis::RoughnessProfile);
    expected.SetWriteToFile(true);
    EXPECT_EQ(TextOf(read), TextOf(expected));
}
