#include "model/ParameterList.h"

#include "model/RoughnessCatalogue.h"
#include "tests/model/PreferencesTesting.h"

#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <limits>

using namespace CommonUI;
using EFactor = CUnit::EUnitFactor;
using EFormat = CParameter::EFormatSpecifier;

namespace
{

std::vector<CParameter> StaticList()
{
    std::vector<CParameter> list;
    for (const auto id :
         {ERoughnessParameters::Sa, ERoughnessParameters::Sdc, ERoughnessParameters::PlugIn}) {
        list.push_back(MakeRoughnessParameter(id));
        list.back().SetOn(list.back().GetVariableCount() == 0);
    }
    return list;
}

std::vector<CParameter> SampleList()
{
    std::vector<CParameter> list = StaticList();
    list[0].SetUnitFactor(EFactor::Micro);
    list[0].SetFloatFormat({EFormat::FormatDecimals, 3});
    list[1].SetOn(true);
    CParameter instance(200, list[1]);
    instance.GetVariable(0).SetVariableValue(2.5);
    instance.GetVariable(1).SetVariableValue(97.5);
    CParameter plugIn(201, list[2]);
    plugIn.SetIniName(u"Acme Ra ");
    plugIn.SetFriendlyString(u"Acme=Ra");
    plugIn.SetShortFriendlyString(u"ARa");
    plugIn.SetDimension(CParameter::EDimension::Volume);
    plugIn.SetOn(false);
    list.insert(list.begin(), instance);
    list.push_back(plugIn);
    return list;
}

} // namespace

TEST(ParameterList, StoredKeysAreThoseOfTheGoldenFile)
{
    std::vector<CParameter> list = SampleList();
    CInifile ini = PreferencesIni("[A]\n[A_DynamicParameters]\nDyn9_ParentParam=Sdc\n");
    SaveParameterList(list, ini, EAnalysis::Roughness);
    EXPECT_EQ(ini.GetBytes(), ReadTestData("parameter-list.ini"));
    EXPECT_EQ(ini.GetSection(), u"A");
    EXPECT_FALSE(list[2].IsOn()) << "a template is switched off in the caller's list, too";
}

TEST(ParameterList, WithoutDynamicParametersTheirSectionIsEmpty)
{
    std::vector<CParameter> list = StaticList();
    CInifile ini = PreferencesIni("[A_DynamicParameters]\nNumDynamicParameters=1\nDyn1_ParentParam=Sdc\n");
    SaveParameterList(list, ini, EAnalysis::Roughness);
    EXPECT_TRUE(ini.HasSection(u"A_DynamicParameters"));
    ini.SelectSection(u"A_DynamicParameters");
    EXPECT_TRUE(ini.GetKeys().empty());
}

TEST(ParameterList, BadEntriesAreLeftOutAndBadValuesKeepTheDefault)
{
    const char* const good = "Dyn1_ParentParam=Sdc\nDyn1_NumVariables=2\nDyn1_VariableValues=7,50\n";
    const struct {
        const char* what;
        EAnalysis analysis;
        const char* count;
        const char* first;
        const char* more;
        int dynamic;
        bool warned;
    } cases[] = {
        {"good", EAnalysis::Roughness, "1", good, "", 1, false},
        {"count too large", EAnalysis::Roughness, "2000000000", good, "", 1, true},
        {"count too small", EAnalysis::Roughness, "0", good, "", 0, true},
        {"too few values", EAnalysis::Roughness, "1",
         "Dyn1_ParentParam=Sdc\nDyn1_NumVariables=2\nDyn1_VariableValues=7\n", "", 1, true},
        {"no finite value", EAnalysis::Roughness, "1",
         "Dyn1_ParentParam=Sdc\nDyn1_NumVariables=2\nDyn1_VariableValues=7,nan\n", "", 1, true},
        {"count negative", EAnalysis::Roughness, "-1", good, "", 1, true},
        {"count no number", EAnalysis::Roughness, "many", good, "", 1, true},
        {"count beyond int", EAnalysis::Roughness, "99999999999", good, "", 1, true},
        {"count empty", EAnalysis::Roughness, "", good, "", 1, true},
        {"unknown parent", EAnalysis::Roughness, "1", "Dyn1_ParentParam=Nope\nDyn1_NumVariables=0\n", "", 0,
         true},
        {"no parent", EAnalysis::Roughness, "1", "Dyn1_NumVariables=0\n", "", 0, true},
        {"parent not in the list", EAnalysis::Roughness, "1", "Dyn1_ParentParam=Sq\n", "", 0, true},
        {"count of variables", EAnalysis::Roughness, "1", "Dyn1_ParentParam=Sdc\n", "", 0, true},
        {"no catalogue", EAnalysis::Tip, "1", good, "", 0, true},
        {"a gap", EAnalysis::Roughness, "5", "Dyn5_ParentParam=Sdc\nDyn5_NumVariables=2\n", "", 1, true},
        {"written differently", EAnalysis::Roughness, "1", "Dyn01_ParentParam=Sdc\nDyn01_NumVariables=2\n",
         "", 0, true},
        {"dimension", EAnalysis::Roughness, "1", good, "Dyn1_P_Dimension=11\n", 1, true},
        {"digits", EAnalysis::Roughness, "1", good, "Dyn1__P_FloatSize=2000000000\n", 1, true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        const CDiagnosticsCapture warnings;
        std::string bytes("[A]\n[A_DynamicParameters]\nNumDynamicParameters=");
        for (const char* part : {row.count, "\n", row.first, row.more})
            bytes += part;
        CInifile ini = PreferencesIni(bytes);
        std::vector<CParameter> list = StaticList();
        LoadParameterList(list, ini, row.analysis);
        ASSERT_EQ(list.size(), 3u + static_cast<unsigned>(row.dynamic));
        EXPECT_EQ(warnings.GetCount() > 0, row.warned);
        if (row.dynamic == 1) {
            EXPECT_EQ(list[3].GetUnitFactor(), EFactor::Undefined);
            EXPECT_EQ(list[3].GetDimension(), CParameter::EDimension::Length);
            EXPECT_EQ(list[3].GetFloatFormat().count, 5);
            EXPECT_EQ(list[3].GetVariable(1).GetVariableValue(), 50);
        }
    }
}

TEST(ParameterList, NumbersThatAreLeftAreGiven)
{
    std::vector<CParameter> list = StaticList();
    list.emplace_back(std::numeric_limits<int>::max() - 1, u"Last", u"", u"", 0, false);
    list.emplace_back(145, u"Taken", u"", u"", 0, false);
    std::string bytes = "[A_DynamicParameters]\nNumDynamicParameters=3\n";
    for (const char* entry : {"Dyn1", "Dyn2", "Dyn3"})
        bytes += std::string(entry) + "_ParentParam=Sdc\n" + entry + "_NumVariables=2\n";
    CInifile ini = PreferencesIni(bytes);
    LoadParameterList(list, ini, EAnalysis::Roughness);
    ASSERT_EQ(list.size(), 8u);
    EXPECT_EQ(list[5].GetValue(), std::numeric_limits<int>::max());
    EXPECT_EQ(list[6].GetValue(), 144);
    EXPECT_EQ(list[7].GetValue(), 146);
}

TEST(ParameterList, UnknownNamesOfStaticParametersKeepWhatWas)
{
    const CDiagnosticsCapture warnings;
    CInifile ini =
        PreferencesIni("[A]\nSa_P_On=perhaps\nSa_P_Factor=nano\nSa_P_FloatFormat=Roman\nSa_P_FloatSize=-1\n"
                       "Sdc_P_On=1\n");
    std::vector<CParameter> list = StaticList();
    list[0].SetUnitFactor(EFactor::Milli);
    const CParameter before = list[0];
    LoadParameterList(list, ini, EAnalysis::Roughness);
    EXPECT_TRUE(CParameter::IsEqual(list[0], before));
    EXPECT_FALSE(list[1].IsOn());
    EXPECT_GE(warnings.GetCount(), 2);
}
