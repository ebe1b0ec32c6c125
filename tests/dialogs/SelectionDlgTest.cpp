#include "dialogs/selection/SelectionDlg.h"

#include "common/ini/Inifile.h"
#include "dialogs/selection/HistogramDlg.h"
#include "dialogs/selection/InputsDlg.h"
#include "dialogs/selection/MemorySelectionView.h"
#include "model/RoughnessAnalysisPreferencesData.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

using namespace CommonUI;

namespace
{

using CDlg = CSelectionDlg;
using EKind = SDialogOption::EKind;
using ETab = ESelectionTab;

constexpr EAnalysis c_analyses[] = {EAnalysis::Calibration1D, EAnalysis::CalibrationXY,
                                    EAnalysis::CalibrationZ,  EAnalysis::CrossCorrelation,
                                    EAnalysis::Linearity,     EAnalysis::PlaneCorrection,
                                    EAnalysis::Roughness,     EAnalysis::RoughnessProfile,
                                    EAnalysis::Tip,           EAnalysis::Measure};

// A dialog with its window, open.
struct SStage {
    SStage(CAnalysisPreferencesManager& manager, EAnalysis analysis)
        : dialog(manager, analysis)
    {
        dialog.SetView(&view);
        dialog.SetGrainSettings({});
        dialog.Create();
    }
    // All tabs as text.
    std::string Draw()
    {
        std::string text;
        for (std::size_t tab = 0; tab < dialog.GetTabs().size(); ++tab) {
            dialog.OnTab(tab);
            text += view.Draw().ToUtf8() + "\n";
        }
        return text;
    }
    // The line of a tab that begins with a text.
    std::string Line(ETab tab, const std::string& begin)
    {
        EXPECT_TRUE(view.GoToTab(tab));
        const std::string text = view.Draw().ToUtf8();
        for (std::size_t from = 0; from < text.size(); from = text.find('\n', from) + 1) {
            const std::size_t start = text.find_first_not_of(' ', from);
            if (text.compare(start, begin.size(), begin) == 0)
                return text.substr(start, text.find('\n', start) - start);
        }
        return {};
    }
    std::string Remark() const { return view.GetText(CDlg::c_remark).ToUtf8(); }
    std::string Count() const { return view.GetText(CDlg::c_count).ToUtf8(); }

    CMemorySelectionView view;
    CDlg dialog;
};

// Changes everything that the current tab offers, and adds what it offers to add.
void ChangeRows(SStage& stage)
{
    const std::size_t tab = stage.dialog.GetCurrentTab();
    const auto rows = [&]() -> const CSelectionRows& { return stage.dialog.GetTabs()[tab].rows; };
    for (int row = 0; row < static_cast<int>(rows().GetCount()); ++row) {
        if (!rows().Get(row).entry)
            continue;
        stage.dialog.OnSelect({row});
        stage.dialog.OnCheck(row, rows().GetCheck(row) == ESelectionCheck::Off);
        const auto units = stage.dialog.GetUnits(tab, row);
        if (!units.empty())
            stage.dialog.OnUnit(row, units[static_cast<std::size_t>(row) % units.size()].first);
        stage.view.Press(CDlg::c_format);
        stage.view.Press(CDlg::c_change);
    }
    stage.view.Press(CDlg::c_add);
}

void ChangeOptions(SStage& stage)
{
    const std::size_t tab = stage.dialog.GetCurrentTab();
    for (std::size_t i = 0; i < stage.dialog.GetTabs()[tab].options.size(); ++i) {
        const SDialogOption option = stage.dialog.GetTabs()[tab].options[i];
        if (option.kind == EKind::Check)
            stage.dialog.OnChoice(option.id, 1 - option.value);
        else if (option.kind == EKind::Choice)
            stage.dialog.OnChoice(option.id, option.value + 1 == static_cast<int>(option.choices.size())
                                                 ? 0
                                                 : option.value + 1);
        else
            stage.view.Type(option.label, option.text == u"7" ? u"8" : u"7");
    }
}

// Answers the dialogs over the window with other values than they have.
void AnswerQuestions(CMemorySelectionView& view)
{
    view.onFormat = [](CFormatSpecifierDlg& dialog, CMemoryFormatSpecifierView& window) {
        window.Choose(0);
        dialog.OnSizeEditChanged(dialog.GetParameter().GetFloatFormat().count % 12 + 1);
        window.Press(CBaseDialog::c_ok);
    };
    view.onOptions = [](CMemoryOptionsView& window) {
        for (const SDialogOption& option : std::vector<SDialogOption>(window.GetOptions()))
            if (option.kind == EKind::Number)
                window.Type(option.id, option.text == u"42" ? u"43" : u"42");
            else if (option.kind == EKind::Check)
                window.Choose(option.id, 1);
        window.Type(CHistogramDlg::c_upper, u"77");
        window.Press(CBaseDialog::c_ok);
    };
}

std::string Differences(const std::string& a, const std::string& b)
{
    return a == b ? "" : a + "--- is not ---\n" + b;
}

} // namespace

// A walk through all dialogs: everything is changed, and what is stored is what was shown.
TEST(SelectionDlg, StoresWhatItShowsForEveryAnalysis)
{
    for (const EAnalysis analysis : c_analyses) {
        CAnalysisPreferencesManager manager;
        SStage stage(manager, analysis);
        AnswerQuestions(stage.view);
        const std::string before = stage.Draw();
        for (std::size_t tab = 0; tab < stage.dialog.GetTabs().size(); ++tab) {
            stage.dialog.OnTab(tab);
            const std::string shown = stage.view.Draw().ToUtf8();
            ChangeRows(stage);
            ChangeOptions(stage);
            EXPECT_NE(stage.view.Draw().ToUtf8(), shown) << static_cast<int>(analysis) << " " << tab;
        }
        const std::string changed = stage.Draw();
        SStage meanwhile(manager, analysis);
        EXPECT_EQ(Differences(meanwhile.Draw(), before), "") << "nothing has happened before OK";
        meanwhile.view.Press(CBaseDialog::c_cancel);
        ASSERT_TRUE(stage.view.Press(CBaseDialog::c_ok));
        ASSERT_FALSE(stage.dialog.IsOpen()) << stage.Remark();

        CInifile ini;
        ini.SelectSection(u"Analysis");
        manager.Save(ini);
        CAnalysisPreferencesManager next;
        next.Load(ini);
        SStage again(next, analysis);
        again.dialog.EndDialog(CBaseDialog::c_cancel);
        again.dialog.SetGrainSettings(*stage.dialog.GetGrainSettings());
        again.dialog.Create();
        EXPECT_EQ(Differences(again.Draw(), changed), "") << static_cast<int>(analysis);
    }
}

TEST(SelectionDlg, HasTheTabsOfTheAnalysis)
{
    const std::map<EAnalysis, std::string> more = {
        {EAnalysis::Roughness, "Parameters Curves Statistics Outputs Preprocessing Bar Chart "},
        {EAnalysis::RoughnessProfile, "Parameters Curves Statistics Outputs Preprocessing Bar Chart "},
        {EAnalysis::Measure, "Parameters Statistics Outputs Preprocessing Grains "}};
    CAnalysisPreferencesManager manager;
    for (const EAnalysis analysis : c_analyses) {
        SStage stage(manager, analysis);
        std::string names;
        for (const CDlg::STab& tab : stage.dialog.GetTabs()) {
            names += GetSelectionTabName(tab.kind).ToUtf8() + " ";
            EXPECT_TRUE(tab.rows.GetCount() > 0 || !tab.options.empty()) << names;
        }
        const auto found = more.find(analysis);
        EXPECT_EQ(names,
                  found == more.end() ? "Parameters Statistics Outputs Preprocessing " : found->second);
    }
}

TEST(SelectionDlg, FindsBySymbolNameAndStandard)
{
    CAnalysisPreferencesManager manager;
    SStage stage(manager, EAnalysis::RoughnessProfile);
    const struct {
        const char16_t* text;
        const char* count;
        const char16_t* found;
    } rows[] = {
        {u"", "5 chosen", u"Ra, Arithmetical Mean Deviation"},
        {u"RA", "5 chosen, 11 found", u"Ra, Arithmetical Mean Deviation"},
        {u"iso4287 ra arith", "5 chosen, 1 found", u"Ra, Arithmetical Mean Deviation"},
        {u"12085", "5 chosen, 11 found", u"ISO 12085"},
        {u"mean width 4287 waviness", "5 chosen, 1 found", u"WSm, Mean Width of the Profile Elements"},
        {u"nowhere", "5 chosen, 0 found", nullptr},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(stage.view.Search(row.text));
        EXPECT_EQ(stage.Count(), row.count) << CStr(row.text).ToUtf8() << "\n" << stage.view.Draw().ToUtf8();
        EXPECT_TRUE(!row.found || stage.view.Select(row.found)) << stage.view.Draw().ToUtf8();
    }
    // The search stays when the parameters are others.
    EXPECT_TRUE(stage.view.Search(u"mean width 4287 waviness"));
    EXPECT_TRUE(stage.view.Press(CDlg::c_defaults));
    EXPECT_NE(stage.Count().find(", 1 found"), std::string::npos) << stage.Count();
    // The check box of a group is for what is shown of it.
    stage.view.Search(u"4287 ra arith");
    EXPECT_TRUE(stage.view.Check(u"ISO 4287", false));
    stage.view.Search({});
    EXPECT_EQ(stage.Count(), "4 chosen");
    EXPECT_EQ(stage.Line(ETab::Parameters, "[-] ISO 4287"), "[-] ISO 4287");
    EXPECT_TRUE(stage.view.Check(u"ISO 4287", true));
    EXPECT_EQ(stage.Line(ETab::Parameters, "[x] ISO 4287"), "[x] ISO 4287");
    EXPECT_EQ(stage.Line(ETab::Parameters, "Rmr(c)").substr(0, 6), "Rmr(c)") << "a template has no check box";
}

TEST(SelectionDlg, MakesChangesAndRemovesParametersOfTemplates)
{
    CAnalysisPreferencesManager manager;
    SStage stage(manager, EAnalysis::Roughness);
    const auto answer = [&](const char16_t* text, const char* remark, bool taken) {
        stage.view.onOptions = [=](CMemoryOptionsView& window) {
            window.Type(CInputsDlg::c_firstInput, text);
            EXPECT_EQ(window.GetText(COptionsDlg::c_remark).ToUtf8(), remark);
            EXPECT_TRUE(window.Press(CBaseDialog::c_ok));
            EXPECT_EQ(window.IsVisible(), !taken);
        };
    };
    const auto line = [&](const char* begin) { return stage.Line(ETab::Parameters, begin); };
    EXPECT_TRUE(stage.view.Search(u"sch"));
    EXPECT_TRUE(stage.view.Select(u"Sch(p), Percentile Height"));
    EXPECT_FALSE(stage.view.Press(CDlg::c_change)) << "a template";
    EXPECT_FALSE(stage.view.Press(CDlg::c_remove));
    answer(u"12,5 %", "Gives: Sch(12.5 %), Percentile Height", true);
    EXPECT_TRUE(stage.view.Press(CDlg::c_add));
    EXPECT_EQ(line("[x] Sch(12.5"), "[x] Sch(12.5 %), Percentile Height | nm | 5 Digits");
    answer(u"12.5", "There is \"Sch(12.5 %)\" already.", false);
    EXPECT_TRUE(stage.view.Press(CDlg::c_add));
    answer(u"110", "Percentile p (%): It is from 0 to 100.", false);
    EXPECT_TRUE(stage.view.Press(CDlg::c_change)) << "the new one is selected";
    answer(u"20", "Gives: Sch(20 %), Percentile Height", true);
    EXPECT_TRUE(stage.view.Press(CDlg::c_change));
    EXPECT_EQ(line("[x] Sch(20"), "[x] Sch(20 %), Percentile Height | nm | 5 Digits");
    EXPECT_TRUE(stage.view.Select(u"Sch(20 %), Percentile Height"));
    EXPECT_TRUE(stage.view.Press(CDlg::c_remove));
    EXPECT_EQ(line("[x] Sch"), "");
    EXPECT_TRUE(stage.view.Press(CBaseDialog::c_ok));
}

TEST(SelectionDlg, ShowsWhatAnotherWindowChanges)
{
    CAnalysisPreferencesManager manager;
    SStage stage(manager, EAnalysis::Roughness);
    SStage other(manager, EAnalysis::Roughness);
    EXPECT_TRUE(stage.view.ChooseUnit(u"Sa, Arithmetical Mean Height", u"µm"));
    EXPECT_TRUE(other.view.ChooseUnit(u"Sa, Arithmetical Mean Height", u"mm"));
    EXPECT_TRUE(other.view.ChooseUnit(u"Sq, Root Mean Square Height", u"mm"));
    other.view.GoToTab(ETab::Preprocessing);
    EXPECT_TRUE(other.view.Choose(u"Subtract from the surface", u"Nothing"));
    other.view.Press(CBaseDialog::c_ok);
    EXPECT_EQ(stage.Remark(), "Changed by another window: 2 taken over, 1 left as you have changed them.");
    EXPECT_EQ(stage.Line(ETab::Parameters, "[x] Sa"), "[x] Sa, Arithmetical Mean Height | µm | 5 Digits !");
    EXPECT_EQ(stage.Line(ETab::Parameters, "[x] Sq"), "[x] Sq, Root Mean Square Height | mm | 5 Digits !");
    EXPECT_EQ(stage.Line(ETab::Preprocessing, "Subtract"), "Subtract from the surface: Nothing !");
    stage.view.GoToTab(ETab::Parameters);
    const int row = stage.dialog.GetTabs()[0].rows.FindEntry(0);
    EXPECT_EQ(stage.dialog.GetToolTip(0, row), u"Sa, Arithmetical Mean Height\nStandard: VORN Classic\nUnit: "
                                               u"µm\nAnother window has changed this, too; your own change "
                                               u"stays.");
    stage.view.Press(CBaseDialog::c_ok);
    EXPECT_EQ(manager.GetData(EAnalysis::Roughness).GetParameter(0).GetUnitFactor(),
              CUnit::EUnitFactor::Micro);
}

TEST(SelectionDlg, RestoresATabAtATime)
{
    CAnalysisPreferencesManager manager;
    manager.SetDataParameterOn(EAnalysis::RoughnessProfile, 72, false); // Ra
    manager.SetDataPreprocessingNo(EAnalysis::RoughnessProfile, 2);
    SStage stage(manager, EAnalysis::RoughnessProfile);
    const std::string stored = stage.Draw();
    AnswerQuestions(stage.view);
    for (std::size_t tab = 0; tab < stage.dialog.GetTabs().size(); ++tab) {
        stage.dialog.OnTab(tab);
        ChangeRows(stage);
        ChangeOptions(stage);
    }
    for (std::size_t tab = 0; tab < stage.dialog.GetTabs().size(); ++tab) {
        stage.dialog.OnTab(tab);
        EXPECT_TRUE(stage.view.Press(CDlg::c_stored));
    }
    EXPECT_EQ(Differences(stage.Draw(), stored), "");
    stage.view.GoToTab(ETab::Parameters);
    stage.view.Press(CDlg::c_defaults);
    EXPECT_EQ(stage.Count(), "5 chosen");
    EXPECT_EQ(stage.Line(ETab::Preprocessing, "Subtract"),
              "Subtract from the surface: Least-squares paraboloid");
    stage.view.Press(CDlg::c_defaults);
    EXPECT_EQ(stage.Line(ETab::Preprocessing, "Subtract"), "Subtract from the surface: Nothing");
}

TEST(SelectionDlg, WaitsForNumbersThatFit)
{
    CAnalysisPreferencesManager manager;
    SStage stage(manager, EAnalysis::Roughness);
    stage.view.GoToTab(ETab::BarChart);
    EXPECT_FALSE(stage.view.Type(u"Axis from (nm)", u"5")) << "the axis follows the values";
    EXPECT_TRUE(stage.view.Choose(u"Axis follows the values", u"0"));
    EXPECT_TRUE(stage.view.Type(u"Axis from (nm)", u"0,5 µm"));
    EXPECT_TRUE(stage.view.Type(u"Evaluations shown", u"1001"));
    EXPECT_EQ(stage.Remark(), "Evaluations shown: It is from 1 to 1000.");
    stage.view.GoToTab(ETab::Parameters);
    EXPECT_TRUE(stage.view.Press(CBaseDialog::c_ok));
    EXPECT_TRUE(stage.dialog.IsOpen());
    EXPECT_EQ(stage.view.GetFocusedOption(), static_cast<int>(ESelectionOption::BarCount));
    EXPECT_TRUE(stage.view.Type(u"Evaluations shown", u"30"));
    EXPECT_TRUE(stage.view.Choose(u"Parameter of the chart", u"Sdr, Developed Interfacial Area Ratio"));
    EXPECT_EQ(stage.Line(ETab::BarChart, "Axis from"), "Axis from (%): 5E-07");
    stage.view.Press(CBaseDialog::c_ok);
    const auto& data =
        dynamic_cast<const CRoughnessAnalysisPreferencesData&>(manager.GetData(EAnalysis::Roughness));
    EXPECT_EQ(data.GetBarChartConfig().barCount, 30);
    EXPECT_DOUBLE_EQ(data.GetBarChartConfig().lower, 5e-7);
}

// A listener of the change may be the one who closes and destroys the dialog.
TEST(SelectionDlg, MayBeDestroyedByAListener)
{
    struct SListener {
        void OnChange(const SPreferencesChange&) { stage.reset(); }
        std::unique_ptr<SStage> stage;
        CClosureConnection connection;
    };
    CAnalysisPreferencesManager manager;
    SListener listener;
    listener.stage = std::make_unique<SStage>(manager, EAnalysis::Tip);
    manager.GetChangeList().Subscribe(listener, &SListener::OnChange, listener.connection);
    listener.stage->view.Check(u"Tip Height", true);
    listener.stage->dialog.OnOK();
    EXPECT_EQ(listener.stage, nullptr);
}
