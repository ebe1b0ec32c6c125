#include "tests/model/ManagerTesting.h"
#include "tests/model/PreferencesTesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

using namespace CommonUI;
using CData = CAnalysisPreferencesData;

namespace
{

// The first parameter, statistic and output of every list changed in all that is stored of them.
void ChangeAll(CData& data)
{
    data.SetWriteToFile(!data.GetWriteToFile());
    data.SetWriteToDB(!data.GetWriteToDB());
    data.SetUnit(CUnit(CUnit::EUnitFactor::MicroInch));
    data.SetPreprocessingNo(3);
    for (const int id : data.GetParameterIDs()) {
        CParameter parameter = data.GetParameter(id);
        parameter.SetOn(parameter.GetVariableCount() == 0 && !parameter.IsOn());
        parameter.SetUnitFactor(CUnit::EUnitFactor::Milli);
        parameter.SetFloatFormat({CParameter::EFormatSpecifier::FormatDecimals, id % 12});
        data.SetParameter(id, parameter);
    }
    for (CParameter& statistic : data.GetStatistics()) {
        statistic.SetOn(!statistic.IsOn());
        statistic.SetVariableValue(statistic.GetValue() + 0.1);
        data.SetStatistic(statistic.GetValue(), statistic);
    }
    for (const CParameter& output : data.GetOutputs())
        data.SetOutputOn(output.GetValue(), !output.IsOn());
}

} // namespace

TEST(AnalysisPreferences, DefaultsOfEveryAnalysisAreUsable)
{
    CStr names;
    for (int i = 0; i < c_analysisCount; ++i) {
        const auto data = MakePreferences(EAnalysis{i});
        names += data->GetFriendlyName() + u"; ";
        EXPECT_TRUE(*data == EAnalysis{i});
        EXPECT_FALSE(data->IsModified());
        for (const auto& list : {data->GetParameters(), data->GetStatistics(), data->GetOutputs()}) {
            EXPECT_TRUE(std::ranges::any_of(list, &CParameter::IsOn)) << i;
            std::vector<CStr> keys;
            for (const CParameter& entry : list) {
                EXPECT_FALSE(entry.GetFriendlyString().IsEmpty()) << entry.GetIniName().ToUtf8();
                EXPECT_FALSE(entry.IsOn() && entry.GetVariableCount() != 0);
                keys.push_back(entry.GetIniName());
            }
            std::ranges::sort(keys);
            EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end()) << "two entries share a key";
        }
    }
    EXPECT_EQ(names, u"1D Calibration; X/Y Calibration; Z Calibration; Cross Correlation; Linearity; "
                     u"Plane Correction; Image Roughness Analysis; Profile Roughness Analysis; Tip Analysis; "
                     u"Particle & Pore Analysis and Measure Shapes; ");
}

TEST(AnalysisPreferences, WhatIsSavedIsLoaded)
{
    for (int i = 0; i < c_analysisCount; ++i) {
        SCOPED_TRACE(i);
        const auto saved = MakePreferences(EAnalysis{i});
        ChangeAll(*saved);
        EXPECT_TRUE(saved->IsModified());
        CInifile ini = PreferencesIni();
        EXPECT_TRUE(saved->Save(ini));
        EXPECT_FALSE(saved->IsModified());
        const auto loaded = MakePreferences(EAnalysis{i});
        EXPECT_TRUE(loaded->Load(ini));
        EXPECT_FALSE(loaded->IsModified());
        EXPECT_EQ(SavedBytes(*loaded), ini.GetBytes());
        loaded->Reset();
        EXPECT_EQ(SavedBytes(*loaded), SavedBytes(*MakePreferences(EAnalysis{i})));
    }
}

TEST(AnalysisPreferences, WhatCannotBeReadKeepsItsValue)
{
    const CDiagnosticsCapture warnings;
    CInifile ini = PreferencesIni("[A]\nWriteToFile=maybe\nPreprocessing=4\nCount_S_On=2\nMean_S_Value=nan\n"
                                  "ResultTable_O_On=\nStepHeight_P_On=perhaps\nStepHeight_P_Factor=nano\n"
                                  "StepHeight_P_FloatFormat=Roman\nStepHeight_P_FloatSize=-1\n");
    CData data(EAnalysis::CalibrationZ);
    EXPECT_TRUE(data.Load(ini));
    EXPECT_EQ(SavedBytes(data), SavedBytes(*MakePreferences(EAnalysis::CalibrationZ)));
    EXPECT_EQ(warnings.GetCount(), 9);
}

TEST(AnalysisPreferences, AbsentNumbersThrowInGettersAndAreRefusedBySetters)
{
    const CData data(EAnalysis::Tip);
    const EAnalysis none{10};
    const auto expect = [](const char16_t* function, const char16_t* message, const auto& call) {
        ExpectInternal(call, u"CAnalysisPreferencesData::" + CStr(function), message);
    };
    expect(u"GetParameter", u"Illegal Parameter ID: 12345", [&] { (void)data.GetParameter(12345); });
    expect(u"GetStatistic", u"Illegal m_Statistic ID: -1", [&] { (void)data.GetStatistic(-1); });
    expect(u"GetOutput", u"Illegal Output ID: 12345", [&] { (void)data.GetOutput(12345); });
    expect(u"GetFriendlyName", u"Illegal Analysis value: 10", [&] { (void)CData::GetFriendlyName(none); });
    expect(u"GetININame", u"Illegal Analysis value: -1", [] { (void)CData::GetININame(EAnalysis{-1}); });
    expect(u"Init", u"Illegal Analysis value: 10", [&] { (void)CData(none); });
    CData changed = data;
    const CParameter other(12345, u"x", u"x", u"", 0, true);
    EXPECT_FALSE(changed.SetStatistic(12345, other) || changed.SetOutput(12345, other) ||
                 changed.SetParameterOn(12345, true) || changed.SetStatsOn(12345, true) ||
                 changed.SetOutputOn(12345, true) || changed.SetPreprocessingNo(-1));
    EXPECT_FALSE(changed.SetStatistics({other, changed.GetStatistics()[0]}));
    EXPECT_TRUE(changed.SetOutputs({}));
}

TEST(AnalysisPreferences, ParametersAreReplacedAppendedAndNumbered)
{
    CData data(EAnalysis::Tip);
    EXPECT_EQ(data.FindParameterMaxValue(), 6);
    const CParameter other(40, u"Own", u"Own", u"", 6, true);
    EXPECT_TRUE(data.SetParameter(41, other));
    EXPECT_EQ(data.GetParameterIDs().back(), 40);
    EXPECT_EQ(data.AddParameter(0, other), 41);
    EXPECT_EQ(data.GetParameter(41).GetParentValue(), 142);
    EXPECT_EQ(data.GetParameter(41).GetIniName(), u"Own");
    EXPECT_TRUE(data.GetParameter(41).IsOn());
    EXPECT_TRUE(data.SetParameters({}));
    EXPECT_EQ(data.FindParameterMaxValue(), 1);
    data.SetParameters({CParameter(-7, u"Own", u"Own", u"", 6, true)});
    EXPECT_EQ(data.FindParameterMaxValue(), 1);
    data.SetParameters({CParameter(2147483647, other), CParameter(1, other)});
    EXPECT_EQ(data.FindParameterMaxValue(), 2);
}

TEST(AnalysisPreferences, ManyParametersAreFoundByTheirFirstNumber)
{
    CAnalysisPreferencesData data(EAnalysis::Roughness);
    const CParameter any = data.GetParameters().front();
    std::mt19937 random(3);
    const auto expectFound = [&data] {
        const std::vector<CParameter> list = data.GetParameters();
        for (int number = -2; number < 700; ++number) {
            const auto first = std::ranges::find(list, number, &CParameter::GetValue);
            ASSERT_EQ(data.IsParameterOn(number), first != list.end() && first->IsOn()) << number;
            if (first != list.end()) {
                ASSERT_TRUE(CParameter::IsSame(data.GetParameter(number), *first)) << number;
            }
        }
        const auto largest = std::ranges::max(data.GetParameterIDs());
        EXPECT_EQ(data.FindParameterMaxValue(), std::max(largest, 0) + 1);
    };
    for (int step = 0; step < 40; ++step) {
        for (int i = 0; i < 12; ++i)
            data.AddParameter(0, any);
        // One takes the place of another, and there may be two of a number.
        for (int i = 0; i < 3; ++i) {
            CParameter other(static_cast<int>(random() % 600), any);
            other.SetOn(random() % 2 != 0);
            data.SetParameter(static_cast<int>(random() % 600), other);
            data.SetParameterOn(static_cast<int>(random() % 600), random() % 2 != 0);
        }
        expectFound();
        if (step % 10 == 9) {
            std::vector<CParameter> list = data.GetParameters();
            std::ranges::shuffle(list, random);
            list.resize(list.size() / 2, any);
            data.SetParameters(list);
            expectFound();
        }
    }
}

TEST(AnalysisPreferences, GroupsListWhatTheGetterAnswers)
{
    CData data(EAnalysis::Roughness);
    const int dynamic = data.AddParameter(0, CParameter(7, u"Own", u"Own", u"", 6, true));
    const auto few = data.GetGroups(&CData::GetParameter, false);
    ASSERT_EQ(few.size(), 1u);
    EXPECT_EQ(few[0].name, u"All Parameters");
    EXPECT_EQ(few[0].parameters.size(), 50u) << "six templates and the dynamic parameter are left out";
    EXPECT_EQ(GroupedIDs(data.GetGroups(&CData::GetParameter, true)), data.GetParameterIDs());
    EXPECT_EQ(data.GetParameterIDs().back(), dynamic);
    EXPECT_EQ(GroupedIDs(data.GetStatisticGroups()), data.GetStatisticIDs());
    EXPECT_EQ(GroupedIDs(data.GetOutputGroups()), data.GetOutputIDs());
    data.SetParameters({data.GetStatistic(4), data.GetStatistic(1)});
    data.SetStatsOn(4, false);
    const auto statistics = data.GetGroups(&CData::GetStatistic, false);
    EXPECT_EQ(GroupedIDs(statistics), (std::vector<int>{4, 1}));
    EXPECT_FALSE(statistics[0].parameters[0].IsOn());
}

TEST(AnalysisPreferences, AssignKeepsTheAnalysisAndTheClass)
{
    CRoughnessAnalysisPreferencesData data(EAnalysis::Roughness);
    data.SetFormRemoval(ERoughnessFormRemoval::Parabola);
    EXPECT_FALSE(data.Assign(CRoughnessAnalysisPreferencesData(EAnalysis::RoughnessProfile)));
    EXPECT_FALSE(data.Assign(CData(EAnalysis::Tip)));
    CData base(EAnalysis::Roughness);
    base.SetWriteToDB(true);
    EXPECT_TRUE(data.Assign(base));
    EXPECT_TRUE(data.GetWriteToDB());
    EXPECT_EQ(data.GetFormRemoval(), ERoughnessFormRemoval::Parabola);
    const auto clone = data.Clone();
    EXPECT_TRUE(clone->Assign(CRoughnessAnalysisPreferencesData(EAnalysis::Roughness)));
    EXPECT_EQ(SavedBytes(*clone), SavedBytes(*MakePreferences(EAnalysis::Roughness)));
}
