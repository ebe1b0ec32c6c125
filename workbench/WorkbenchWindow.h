#pragma once

#include "controls/tabs/Tabs.h"
#include "formats/SurfaceReading.h"
#include "measurement/process/SessionJournal.h"
#include "qt/controls/TabWindow.h"
#include "qt/settings/SettingsButton.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "workbench/MessageJournal.h"
#include "workbench/NoticeBar.h"
#include "workbench/ProcessingPane.h"
#include "workbench/ResultPane.h"
#include "workbench/see/SeeTools.h"
#include "workbench/Store.h"
#include "workbench/SurfacePage.h"
#include "workbench/Texts.h"
#include "workbench/ViewPane.h"

#include <QMainWindow>

#include <map>
#include <optional>

class QLabel;
class QMenu;
class QStackedWidget;

namespace Workbench
{

class CSeriesWindow;

/// The main window: a tab for each surface, panes with results and how surfaces are shown, and the commands.
class CWorkbenchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// What help opens for the workbench as a whole.
    static constexpr unsigned int c_helpTopic = 22000;

    explicit CWorkbenchWindow(CommonUI::CInterfaceColors& colors);
    ~CWorkbenchWindow() override;

    /// Opens surfaces one after the other, the last one in front. What cannot be opened is said in a box.
    void OpenFiles(const std::vector<CommonUI::CStr>& paths);
    /// Sets what reads files, in place of ReadSurface.
    void SetReader(CommonUI::Formats::CSurfaceReading::FRead read) { m_read = std::move(read); }
    /// Shows a surface in a tab of its own.
    CSurfacePage& AddPage(std::shared_ptr<const SurfaceView::SViewedSurface> surface);

    /// Asks whether to open what workbenches had open that were not closed properly.
    void OfferSessions();
    /// From now on nothing is kept for the case of a crash.
    void EndSession();

    /// Null without a tab.
    CSurfacePage* GetPage() const;
    CommonUI::CTabs& GetTabs() noexcept { return m_tabs; }
    CResultPane& GetResults() noexcept { return *m_results; }
    CProcessingPane& GetProcessing() noexcept { return *m_processing; }
    CNoticeBar& GetNotice() noexcept { return *m_notice; }
    /// Null before the command was given.
    CSeriesWindow* GetSeries() noexcept { return m_series; }
    CViewPane& GetViewPane() noexcept { return *m_view; }
    CSeeTools& GetSeeTools() noexcept { return *m_see; }
    CommonUI::CSettingsButton& GetColorScales() noexcept { return *m_scales; }
    CStore& GetStore() noexcept { return m_store; }
    /// What support asks for: versions of the library, of Qt and of the driver.
    QString GetAboutText() const;
    /// Likewise with all that there is: the reports of OpenGL, where settings are, and the messages.
    QString GetDiagnosticsText() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeFileMenu();
    void MakeViewMenu();
    void MakeOtherMenus();
    void MakeToolBar();
    void MakePanes();
    void MakeEditMenu();
    void SaveSurfaceAs();
    void ShowReport();
    bool SaveReport(const CommonUI::SReportTemplateSettings& layout, bool hasPictures, bool opens);
    CommonUI::CStr FindReasonNotToSave(CSurfacePage& page, const CommonUI::CStr& path) const;
    CommonUI::CStr FindReasonNotToWrite(const CommonUI::CStr& path) const;
    void ReloadPage();
    void ShowNotice();
    void KeepSession();
    bool OpenAgain(const CommonUI::Measurement::SSessionSurface& surface);
    void ChooseFile();
    void FillRecent();
    bool OpenFile(const CommonUI::CStr& name);
    void ClosePage();
    void OnCurrentTab();
    /// What is open beside a page.
    std::vector<SOtherSurface> GetOthers(const CSurfacePage* page) const;
    void Zoom(double factor) const;
    void Fit() const;
    /// @param other of both views, which comes back when none is left
    void OnViews(QAction& other);
    void OnProjection();
    void OnLook(const SBlockLook& look);
    void ShareLook();
    void ShareLookOf(const SBlockLook& look);
    void OnScale(CommonUI::CSettings& settings);
    void RestoreScale();
    void ChooseParameters();
    void ShowSeries();
    SSeriesSource GetSeriesSource() const;
    void ShowAbout();
    void ShowDiagnostics();
    void TellOfStore();
    void Save();
    std::vector<CSurfacePage*> GetPages() const;

    CMessageJournal m_messages; // from before the store is read
    CommonUI::Formats::CSurfaceReading::FRead m_read;
    CStore m_store;
    CommonUI::CInterfaceColors& m_interfaceColors;
    CommonUI::SColorScale m_scale{};
    std::optional<CommonUI::Measurement::CSessionJournal> m_session; // until the window closes
    bool m_isJournalGood = true;
    std::shared_ptr<const CommonUI::Measurement::SInput> m_shown; // what the panes show
    CommonUI::CTabs m_tabs;
    CommonUI::CTabWindow* m_tabWindow;
    QStackedWidget* m_center;
    QLabel* m_hint;
    QLabel* m_point; // what is read out
    CResultPane* m_results = nullptr;
    CProcessingPane* m_processing = nullptr;
    CNoticeBar* m_notice = nullptr;
    CViewPane* m_view = nullptr;
    CSeeTools* m_see = nullptr;
    CSeriesWindow* m_series = nullptr;
    CommonUI::CSettingsButton* m_scales = nullptr;
    QMenu* m_recent = nullptr;
    QAction* m_open = nullptr;
    QAction* m_saveSurface = nullptr;
    QAction* m_saveReport = nullptr;
    QAction* m_fit = nullptr;
    QAction* m_close = nullptr;
    QAction* m_showMap = nullptr;
    QAction* m_showBlock = nullptr;
    QAction* m_parallel = nullptr;
    QAction* m_parameters = nullptr;
    std::map<CSurfacePage*, CommonUI::CClosureConnection> m_appliedConnections;
    CommonUI::CClosureConnection m_currentConnection;
    CommonUI::CClosureConnection m_tabsConnection;
    CommonUI::CClosureConnection m_scaleConnection;
};

} // namespace Workbench
