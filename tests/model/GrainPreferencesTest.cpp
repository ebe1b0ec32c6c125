#include "tests/model/PreferencesTesting.h"

#include <gtest/gtest.h>

using namespace CommonUI;
using CData = CGrainAnalysisPreferencesData;
using EMeasure = EMeasureParameters;
using EHist = EGrainHistograms;

TEST(GrainPreferences, QuantitiesHaveDimensionsLimitsAndAllHistograms)
{
    const CData data;
    for (const CParameter& parameter : data.GetParameters()) {
        const EMeasure quantity{parameter.GetValue()};
        EXPECT_EQ(parameter.GetDimension(), MeasureParameter2Dimension(quantity));
        for (const EHist histogram : {EHist::Number, EHist::Area, EHist::Volume})
            EXPECT_EQ(data.GetHistogramSetup(quantity, histogram), CParameter::SHistogramSetup());
    }
    EXPECT_EQ(data.GetParameter(static_cast<int>(EMeasure::Orientation)).GetUpperLimit(), 180);
    EXPECT_FALSE(CParameter::IsLimit(data.GetParameter(static_cast<int>(EMeasure::Length)).GetUpperLimit()));
}

TEST(GrainPreferences, BadHistogramsAreRefused)
{
    const CDiagnosticsCapture warnings;
    CInifile ini = PreferencesIni("[A]\nWriteToFile=0\nLength_HistArea_Bins=2000000000\n"
                                  "Length_HistArea_MinVal=nan\nLength_HistArea_MinOn=1\n");
    CData data;
    data.Load(ini);
    CParameter::SHistogramSetup expected;
    expected.lowerOn = true;
    EXPECT_EQ(data.GetHistogramSetup(EMeasure::Length, EHist::Area), expected);
    EXPECT_EQ(warnings.GetCount(), 2);
    expected.classCount = 0;
    EXPECT_FALSE(data.SetHistogramSetup(EMeasure::Length, EHist::Area, expected));
    EXPECT_FALSE(data.SetHistogramSetup(EMeasure{71}, EHist::Area, {}));
}

TEST(GrainPreferences, GroupsHoldEveryQuantityOnce)
{
    CData data;
    const int added = data.AddParameter(static_cast<int>(EMeasure::Volume),
                                        data.GetParameter(static_cast<int>(EMeasure::Length)));
    EXPECT_EQ(added, 76);
    const auto groups = data.GetParameterGroups(true);
    EXPECT_TRUE(std::ranges::none_of(groups, &CStr::IsEmpty, &SParameterGroup::name));
    std::vector<int> ids = GroupedIDs(groups);
    std::vector<int> expected = data.GetParameterIDs();
    std::erase(expected, 0); // the catalogue's "None"
    std::ranges::sort(expected);
    std::ranges::sort(ids);
    EXPECT_EQ(ids, expected);
    EXPECT_EQ(data.GetParameterGroups(false).size(), data.GetOutputGroups().size());
    EXPECT_EQ(data.GetStatisticGroups().size(), 2u);
    EXPECT_EQ(data.AddParameter(71, data.GetParameter(1)), -1);

    CInifile ini = PreferencesIni();
    data.Save(ini);
    CData loaded;
    loaded.Load(ini);
    EXPECT_EQ(loaded.GetParameter(77).GetBaseValue(), static_cast<int>(EMeasure::Volume));
}
