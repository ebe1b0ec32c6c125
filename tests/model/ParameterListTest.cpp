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
    const std::string good = "Dyn1_ParentParam=Sdc\nDyn1_NumVariables=2\nDyn1_VariableValues=7,50\n";
    const struct {
        const char* what;
        std::string count;
        std::string entries;
        bool isMade;
        EAnalysis analysis = EAnalysis::Roughness;
    } cases[] = {
        {"good", "1", good, true},
        {"count too large", "2000000000", good, true},
        {"count too small", "0", good, false},
        {"count negative", "-1", good, true},
        {"count no number", "many", good, true},
        {"count beyond int", "99999999999", good, true},
        {"count empty", "", good, true},
        {"too few values", "1", "Dyn1_ParentParam=Sdc\nDyn1_NumVariables=2\nDyn1_VariableValues=7\n", true},
        {"value not finite", "1", "Dyn1_ParentParam=Sdc\nDyn1_NumVariables=2\nDyn1_VariableValues=7,nan\n",
         true},
        {"unknown parent", "1", "Dyn1_ParentParam=Nope\nDyn1_NumVariables=0\n", false},
        {"no parent", "1", "Dyn1_NumVariables=0\n", false},
        {"parent not in the list", "1", "Dyn1_ParentParam=Sq\n", false},
        {"count of variables", "1", "Dyn1_ParentParam=Sdc\n", false},
        {"no catalogue", "1", good, false, EAnalysis::Tip},
        {"a gap", "5", "Dyn5_ParentParam=Sdc\nDyn5_NumVariables=2\n", true},
        {"written differently", "1", "Dyn01_ParentParam=Sdc\nDyn01_NumVariables=2\n", false},
        {"dimension", "1", good + "Dyn1_P_Dimension=11\n", true},
        {"digits", "1", good + "Dyn1__P_FloatSize=2000000000\n", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        const CDiagnosticsCapture warnings;
        CInifile ini = PreferencesIni("[A]\n[A_DynamicParameters]\nNumDynamicParameters=" + row.count + "\n" +
                                      row.entries);
        std::vector<CParameter> list = StaticList();
        LoadParameterList(list, ini, row.analysis);
        EXPECT_EQ(warnings.GetCount() == 0, row.what == std::string("good"));
        ASSERT_EQ(list.size(), row.isMade ? 4u : 3u);
        if (row.isMade) {
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
