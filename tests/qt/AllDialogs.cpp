#include "tests/qt/AllDialogs.h"

#include "dialogs/help/HelpTopics.h"
#include "dialogs/messages/RememberedMessageBox.h"
#include "dialogs/placement/PlacementManager.h"
#include "dialogs/selection/HistogramDlg.h"
#include "dialogs/selection/InputsDlg.h"
#include "platform/ManualTimerService.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "qt/framework/SelectionListWindow.h"
#include "qt/framework/TextEditorWindow.h"
#include "qt/results/ResultWindow.h"
#include "qt/selection/OptionsWindow.h"
#include "qt/selection/QtSelectionDlg.h"
#include "qt/services/QtMessageBoxService.h"
#include "qt/settings/SettingsChooserWindow.h"
#include "qt/settings/SettingsDifferenceWindow.h"
#include "qt/settings/SettingsImportWindow.h"
#include "qt/settings/SettingsManageWindow.h"
#include "tests/qt/WidgetTesting.h"

namespace CommonUI
{

CAllDialogs::CAllDialogs()
{
    WriteCustom("l.flt", "[F]\na=-1E-6\nb=2\nc=1\n");
    WriteCustom("r.flt", "[F]\na=-0.000001\nb=-3\n[G]\nd=4");
    m_folder.Write("stick/x.cpz", "[Z]\nFactor=2\n");
    WriteCustom("x.cpz", "[Z]\nFactor=-1\n");
}

CAllDialogs::~CAllDialogs()
{
    GetPlacementManager().Clear(); // sizes of windows that a test has made smaller
}

void CAllDialogs::Look(const std::string& name, QDialog& window, unsigned int topic, const FLook& look)
{
    const testing::ScopedTrace trace(__FILE__, __LINE__, name);
    m_topic = topic;
    Activate(window);
    // A window over another one counts as active when that one is.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
    look(window);
}

void CAllDialogs::ForEach(const FLook& look)
{
    ShowSelections(look);
    ShowOptions(look);
    ShowFrameworkDialogs(look);
    ShowProgress(look);
    ShowSettings(look);
    ShowResults(look);
    ShowMessageBox(look);
}

void CAllDialogs::ShowSelections(const FLook& look)
{
    CAnalysisPreferencesManager manager;
    for (int i = 0; i <= static_cast<int>(EAnalysis::Measure); ++i) {
        CQtSelectionDlg dialog(manager, EAnalysis{i});
        dialog.SetGrainSettings({});
        dialog.Create();
        const CStr name = CAnalysisPreferencesData::GetININame(EAnalysis{i});
        for (std::size_t tab = 0; tab < dialog.GetTabs().size(); ++tab) {
            dialog.GetWindow()->GetTabWidget().setCurrentIndex(static_cast<int>(tab));
            Look(ToUtf8(name) + " " + std::to_string(tab), *dialog.GetWindow(),
                 CSelectionDlg::GetIdentifier(EAnalysis{i}), look);
        }
    }
}

void CAllDialogs::ShowOptions(const FLook& look)
{
    const CAnalysisPreferencesData roughness(EAnalysis::Roughness);
    const CAnalysisPreferencesManager manager;
    CInputsDlg inputs(roughness.GetParameters(), CParameter::c_noParent);
    CPercentileDlg percentile(95);
    const auto& grains = manager.GetData(EAnalysis::Measure);
    CHistogramDlg histogram(grains.GetParameters()[0], {});
    for (COptionsDlg* const dialog : std::initializer_list<COptionsDlg*>{&inputs, &percentile, &histogram}) {
        COptionsWindow window;
        dialog->SetView(&window);
        dialog->Create();
        Look("options " + std::to_string(dialog->GetIdentifier()), window, dialog->GetIdentifier(), look);
        dialog->EndDialog(CBaseDialog::c_cancel);
    }
}

void CAllDialogs::ShowFrameworkDialogs(const FLook& look)
{
    CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
    CQtFormatSpecifierDlg format(parameter);
    format.Create();
    Look("number format", *format.GetWindow(), CFormatSpecifierDlg::c_identifier, look);
    format.EndDialog(CBaseDialog::c_cancel);
    for (const auto mode : {CSelectionListDlg::EMode::Single, CSelectionListDlg::EMode::Several}) {
        CQtSelectionListDlg list(nullptr, mode, u"Profile", u"&Profiles:", {u"One", u"Two", u"Three"});
        list.Create();
        Look("list", *list.GetWindow(), CSelectionListDlg::c_identifier, look);
    }
    for (const auto mode : {CTextEditorDlg::EMode::Edit, CTextEditorDlg::EMode::ReadOnly}) {
        CQtTextEditorDlg editor(nullptr, mode, u"Remarks", u"One line\nand another one");
        editor.Create();
        Look("text", *editor.GetWindow(), CTextEditorDlg::c_identifier, look);
    }
}

void CAllDialogs::ShowProgress(const FLook& look)
{
    CManualTimerService timers;
    const CServiceScope<CTimerService> scope(timers);
    CQtProgressDialog dialog(nullptr, u"Batch", u"Reading the files");
    dialog.Create();
    timers.Advance(CProgressDialogBase::c_showDelay);
    Look("progress", *dialog.GetWindow(), ProgressTemplate::c_dialog, look);
}

void CAllDialogs::ShowSettings(const FLook& look)
{
    CSettingsMenu menu(ESettingType::Filter);
    {
        CSettingsChooserWindow window(menu);
        WaitFor(menu.GetScan());
        Look("chooser", window, HelpTopic::c_chooser, look);
    }
    {
        CSettingsManageWindow window(menu);
        WaitFor(menu.GetScan());
        Look("manage", window, HelpTopic::c_manage, look);
        window.findChild<QTreeView*>()->setFocus();
        Type("Down");
        WhenShown<QInputDialog>([&](QInputDialog& dialog) {
            Look("rename", dialog, HelpTopic::c_manage, look);
            dialog.reject();
        });
        Activate(window);
        Type("F2");
    }
    {
        CSettingsDifferenceWindow window(ESettingType::Filter);
        window.SetLeft({Custom("l.flt"), ESettingType::Filter});
        window.SetRight({Custom("r.flt"), ESettingType::Filter});
        Look("compare", window, HelpTopic::c_compare, look);
    }
    CSettingsImport import(ESettingType::ZCalibration);
    EXPECT_TRUE(import.Prepare(Path("stick/x.cpz")));
    CSettingsImportWindow window(import, ESettingType::ZCalibration);
    Look("import", window, HelpTopic::c_import, look);
}

void CAllDialogs::ShowResults(const FLook& look)
{
    const CParameter sa = CAnalysisPreferencesData(EAnalysis::Roughness).GetParameters()[0];
    SResultSet results{.name = u"Dialogs", .title = u"Sample"};
    results.summary = {{u"File", u"sample.sdf"}};
    results.rowHeader = u"Profile";
    results.rowNames = {u"1", u"2"};
    results.quantities = {
        {.key = u"Sa", .parameter = sa, .header = u"Sa", .values = {1e-6, -2e-6}, .statistics = {-5e-7}}};
    results.statistics = {{.key = u"Mean", .name = u"Mean"}};
    CResultLayoutManager layouts;
    CQtResultDialog dialog(nullptr, layouts);
    dialog.SetResults(std::make_shared<const SResultSet>(results));
    dialog.Create();
    Look("results", *dialog.GetWindow(), CResultDialog::c_identifier, look);
}

void CAllDialogs::ShowMessageBox(const FLook& look)
{
    CQtMessageBoxService service;
    const CServiceScope<CMessageBoxService> scope(service);
    CPreferencesData preferences;
    WhenShown<QMessageBox>([&](QMessageBox& window) {
        Look("message", window, 0, look);
        window.reject();
    });
    ShowRememberedMessageBox(u"CloseUnsaved",
                             {u"The results are not saved.\nClose the window?", MessageBoxStyle::c_yesNo},
                             preferences);
}

} // namespace CommonUI
