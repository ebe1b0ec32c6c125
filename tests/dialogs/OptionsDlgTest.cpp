#include "dialogs/selection/OptionsDlg.h"

#include "dialogs/selection/HistogramDlg.h"
#include "dialogs/selection/InputsDlg.h"
#include "dialogs/selection/MemoryOptionsView.h"
#include "dialogs/selection/TabOptions.h"
#include "model/RoughnessCatalogue.h"

#include <gtest/gtest.h>

#include <cfloat>

using namespace CommonUI;

namespace
{

using EKind = SDialogOption::EKind;
using EThreshold = Analysis::EGrainThreshold;
constexpr auto c_ok = CBaseDialog::c_ok;

SBase3D<CUnit> Metres()
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    return {metre, metre, metre};
}

CParameter::SHistogramSetup SetupOf(const CHistogramDlg& dialog, EGrainHistograms histogram)
{
    return dialog.GetSetup(histogram);
}

} // namespace

TEST(OptionsDlg, ReadsNumbersInTheirUnitsAndRanges)
{
    const SDialogOption micro{
        .kind = EKind::Number, .unit = u"µm", .factor = 1e-6, .lower = -DBL_MAX, .upper = DBL_MAX};
    const SDialogOption percent{.kind = EKind::Number, .unit = u"%"};
    const SDialogOption count{.kind = EKind::Number, .lower = 1, .upper = DBL_MAX, .whole = true};
    const struct {
        const SDialogOption& option;
        const char16_t* text;
        std::optional<double> number;
        const char16_t* fault;
    } rows[] = {
        {micro, u"1.5", 1.5e-6, u""},
        {micro, u"-0,25", -2.5e-7, u""},
        {micro, u"800 nm", 8e-7, u""},
        {micro, u"5 %", {}, u"This is no number."},
        {micro, u"", {}, u"This is no number."},
        {percent, u"100", 100, u""},
        {percent, u"100.1", {}, u"It is from 0 to 100."},
        {percent, u"nan", {}, u"This is no number."},
        {count, u"12", 12, u""},
        {count, u"1.5", {}, u"This is no whole number."},
        {count, u"0", {}, u"It is 1 or more."},
    };
    for (const auto& row : rows) {
        SDialogOption option = row.option;
        option.fault = u"before";
        const auto number = TypeOption(option, row.text);
        EXPECT_EQ(number.has_value(), row.number.has_value()) << CStr(row.text).ToUtf8();
        EXPECT_NEAR(number.value_or(0), row.number.value_or(0), 1e-20) << CStr(row.text).ToUtf8();
        EXPECT_EQ(option.fault, row.fault);
        EXPECT_EQ(option.text, row.text) << "what is typed stays";
    }
}

TEST(OptionsDlg, EditsTheHistogramsOfAQuantityOneByOne)
{
    CAnalysisPreferencesManager manager;
    CHistogramDlg dialog(manager.GetData(EAnalysis::Measure).GetParameter(3), Metres());
    CMemoryOptionsView view;
    dialog.SetView(&view);
    dialog.Create();
    EXPECT_FALSE(view.Type(CHistogramDlg::c_lower, u"5")) << "there is no bound";
    EXPECT_TRUE(view.Choose(CHistogramDlg::c_histogram, 1));
    EXPECT_TRUE(view.Type(CHistogramDlg::c_classes, u"30"));
    EXPECT_TRUE(view.Choose(CHistogramDlg::c_lowerOn, 1));
    EXPECT_TRUE(view.Choose(CHistogramDlg::c_upperOn, 1));
    EXPECT_TRUE(view.Type(CHistogramDlg::c_lower, u"50"));
    EXPECT_EQ(view.GetText(COptionsDlg::c_remark), u"The lower bound is below the upper one.");
    view.Press(c_ok);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_TRUE(view.Type(CHistogramDlg::c_upper, u"2 µm"));
    EXPECT_TRUE(view.Choose(CHistogramDlg::c_histogram, 2));
    EXPECT_TRUE(view.Type(CHistogramDlg::c_classes, u"0"));
    view.Press(c_ok);
    EXPECT_EQ(view.GetFocused(), CHistogramDlg::c_classes);
    EXPECT_TRUE(view.Type(CHistogramDlg::c_classes, u"40"));
    view.Press(c_ok);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(SetupOf(dialog, EGrainHistograms::Number), CParameter::SHistogramSetup());
    const auto area = SetupOf(dialog, EGrainHistograms::Area);
    EXPECT_EQ(area.classCount, 30);
    EXPECT_TRUE(area.lowerOn && area.upperOn);
    EXPECT_DOUBLE_EQ(area.range.GetLower(), 5e-8);
    EXPECT_DOUBLE_EQ(area.range.GetUpper(), 2e-6);
    EXPECT_EQ(SetupOf(dialog, EGrainHistograms::Volume).classCount, 40);
}

TEST(OptionsDlg, AsksForTheInputsOfTheChosenTemplate)
{
    using enum ERoughnessParameters;
    const std::vector<CParameter> list = {MakeRoughnessParameter(Sa), MakeRoughnessParameter(Sch),
                                          MakeRoughnessParameter(Sdc), MakeRoughnessParameter(Iso4287Rmr2)};
    CInputsDlg dialog(list, CParameter::c_noParent);
    CMemoryOptionsView view;
    dialog.SetView(&view);
    dialog.Create();
    EXPECT_EQ(dialog.GetTemplate(), static_cast<int>(Sch)) << "the first one";
    EXPECT_TRUE(view.Choose(CInputsDlg::c_template, 1));
    EXPECT_TRUE(view.Type(CInputsDlg::c_firstInput + 1, u"10"));
    EXPECT_EQ(view.GetText(COptionsDlg::c_remark), u"The second percentage is above the first.");
    EXPECT_TRUE(view.Choose(CInputsDlg::c_template, 2));
    EXPECT_EQ(view.GetOptions().back().label, u"Depth below the Reference dc (µm)");
    EXPECT_TRUE(view.Type(CInputsDlg::c_firstInput + 1, u"250 nm"));
    EXPECT_EQ(view.GetText(COptionsDlg::c_remark), u"Gives: Rmr(5 %, 250 nm), Relative Material Ratio");
    view.Press(c_ok);
    EXPECT_EQ(dialog.GetTemplate(), static_cast<int>(Iso4287Rmr2));
    EXPECT_EQ(dialog.GetValues(), (std::vector{5, 2.5e-7}));
}

TEST(OptionsDlg, GivesAThresholdOfAnotherKindAValueOfItsOwn)
{
    SGrainThresholdSettings settings{.threshold = EThreshold::Relative, .value = 30};
    const auto choose = [&settings](EThreshold threshold) {
        SetGrainOption(settings, EGrainOption::Threshold, static_cast<double>(threshold));
        return settings.value;
    };
    EXPECT_EQ(choose(EThreshold::Percentile), 30);
    EXPECT_EQ(choose(EThreshold::Absolute), 0);
    SetGrainOption(settings, EGrainOption::Value, 2e-8);
    EXPECT_EQ(choose(EThreshold::Absolute), 2e-8);
    EXPECT_EQ(choose(EThreshold::Relative), 50) << "no share of a height";
}
