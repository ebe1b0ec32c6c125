#include "workbench/WorkbenchWindow.h"

#include "common/PathText.h"
#include "common/Version.h"
#include "formats/SurfaceReader.h"
#include "gl/OpenGLWrapper.h"
#include "measurement/documents/TemplateDocument.h"
#include "measurement/NamedSet.h"
#include "platform/FileDialogService.h"
#include "platform/files/FileManager.h"
#include "platform/Folders.h"
#include "platform/HelpService.h"
#include "platform/MessageBoxService.h"
#include "qt/framework/WindowPlacer.h"
#include "settings/preferences/PreferencesManager.h"
#include "settings/SetReference.h"
#include "workbench/DiagnosticsDialog.h"
#include "workbench/GLService.h"
#include "workbench/OpenSurface.h"
#include "workbench/report/ReportDialog.h"
#include "workbench/report/ReportTexts.h"
#include "workbench/SaveSurface.h"
#include "workbench/see/SeeTexts.h"
#include "workbench/series/SeriesForm.h"
#include "workbench/series/SeriesTexts.h"
#include "workbench/series/SeriesWindow.h"
#include "workbench/Texts.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QSysInfo>
#include <QToolBar>
#include <QVBoxLayout>

#include <exception>
#include <functional>
#include <iterator>

namespace Workbench
{

using namespace CommonUI;

namespace
{

constexpr const char16_t* c_memoryKey = u"Surfaces";
constexpr const char16_t* c_filter =
    u"Surfaces (*.sdf;*.x3p;*.txt;*.asc;*.csv)|*.sdf;*.x3p;*.txt;*.asc;*.csv|"
    u"All files (*.*)|*.*||";
constexpr double c_zoomStep = 1.25;

void Tell(const CStr& text)
{
    GetMessageBoxService().Show({.text = text, .style = MessageBoxStyle::c_ok | MessageBoxStyle::c_warning});
}

// Several files of a drop or a list of recent ones may have one name; their folders tell them apart.
STab TabOf(const CStr& path)
{
    return {.key = path, .title = GetFileName(path)};
}

CStr MakeAbsolute(const CStr& name)
{
    try {
        CStr path;
        return ToText(std::filesystem::absolute(ToPath(name)).lexically_normal(), path) ? path : name;
    } catch (const std::exception&) {
        return name; // which then cannot be opened
    }
}

using FCommand = std::function<void()>;

QAction* AddAction(QMenu& menu, EText text, const QKeySequence& keys, const FCommand& command)
{
    QAction* const action = menu.addAction(QText(text));
    action->setShortcut(keys);
    QObject::connect(action, &QAction::triggered, action, command);
    return action;
}

QAction* AddSwitch(QMenu& menu, EText text, bool isOn, const FCommand& command)
{
    QAction* const action = menu.addAction(QText(text));
    action->setCheckable(true);
    action->setChecked(isOn);
    QObject::connect(action, &QAction::toggled, action, command);
    return action;
}

CStr ReferenceOf(const SSettingsEntry& entry)
{
    return entry.m_IsFile ? CStr(c_filePrefix) + entry.m_File : MakeReference(entry.m_BuiltIn);
}

} // namespace

CWorkbenchWindow::CWorkbenchWindow(CInterfaceColors& colors)
    : m_read([](const auto& path, const Formats::FProgress& progress) {
        return Formats::ReadSurface(path, progress);
    })
    , m_interfaceColors(colors)
    , m_tabWindow(new CTabWindow(m_tabs))
    , m_center(new QStackedWidget)
    , m_hint(new QLabel(QText(EText::NoSurface)))
    , m_point(new QLabel)
{
    // The system's window is made for OpenGL from the start: otherwise it would be made anew, and lose the
    // keyboard, with the first surface.
    if (CBlockWidget::IsPossible())
        (new QOpenGLWidget(this))->hide();
    setWindowTitle(QText(EText::ProgramName));
    setAcceptDrops(true);
    m_tabWindow->setAccessibleName(QText(EText::Surfaces));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_center->addWidget(m_hint);
    m_center->addWidget(m_tabWindow);
    auto* const middle = new QWidget;
    auto* const rows = new QVBoxLayout(middle);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    m_notice = new CNoticeBar(QText(EText::Reload), QText(EText::CloseTab).remove(QLatin1Char('&')));
    connect(m_notice, &CNoticeBar::Accepted, this, &CWorkbenchWindow::ReloadPage);
    connect(m_notice, &CNoticeBar::Dismissed, this, [this] {
        GetPage()->AcceptFile();
        ShowNotice();
    });
    rows->addWidget(m_notice);
    rows->addWidget(m_center, 1);
    setCentralWidget(middle);
    m_session.emplace(m_store.GetFolder());
    statusBar()->addWidget(m_point, 1);
    m_interfaceColors.SetChoice(m_store.colors);
    resize(100 * fontMetrics().height(), 60 * fontMetrics().height());
    MakePanes();
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu();
    MakeOtherMenus();
    MakeToolBar();
    new CWindowPlacer(*this, u"Workbench"); // owned by the window
    m_tabs.GetCurrentChanged().Subscribe(*this, &CWorkbenchWindow::OnCurrentTab, m_currentConnection);
    m_tabs.GetTabsChanged().Subscribe(*this, &CWorkbenchWindow::OnCurrentTab, m_tabsConnection);
    RestoreScale();
    OnCurrentTab();
    TellOfStore();
}

CWorkbenchWindow::~CWorkbenchWindow()
{
    delete m_series; // asks the pages
    delete m_center; // goes before the tabs that it shows
}

void CWorkbenchWindow::MakeFileMenu()
{
    QMenu& menu = *menuBar()->addMenu(QText(EText::FileMenu));
    m_open = AddAction(menu, EText::Open, QKeySequence::Open, [this] { ChooseFile(); });
    m_open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    m_recent = menu.addMenu(QText(EText::OpenRecent));
    connect(m_recent, &QMenu::aboutToShow, this, &CWorkbenchWindow::FillRecent);
    m_saveSurface = AddAction(menu, EText::SaveSurface, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                              [this] { SaveSurfaceAs(); });
    m_saveReport = menu.addAction(QText(EReportText::Command));
    m_saveReport->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    connect(m_saveReport, &QAction::triggered, this, &CWorkbenchWindow::ShowReport);
    menu.addSeparator();
    m_close = AddAction(menu, EText::CloseTab, QKeySequence(Qt::CTRL | Qt::Key_W), [this] { ClosePage(); });
    QAction* const quit = menu.addAction(QText(EText::Quit));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void CWorkbenchWindow::MakeEditMenu()
{
    QMenu& menu = *menuBar()->addMenu(QText(EText::EditMenu));
    menu.addAction(&m_processing->GetUndo());
    menu.addAction(&m_processing->GetRedo());
}

void CWorkbenchWindow::MakeViewMenu()
{
    QMenu& menu = *menuBar()->addMenu(QText(EText::ViewMenu));
    m_showMap = AddSwitch(menu, EText::ShowMap, m_store.showsMap, [this] { OnViews(*m_showBlock); });
    m_showMap->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_1));
    m_showBlock = AddSwitch(menu, EText::ShowBlock, m_store.showsBlock, [this] { OnViews(*m_showMap); });
    m_showBlock->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_2));
    m_parallel = AddSwitch(menu, EText::Parallel, m_store.look.isParallel, [this] { OnProjection(); });
    menu.addSeparator();
    m_fit = AddAction(menu, EText::Fit, QKeySequence(Qt::CTRL | Qt::Key_0), [this] { Fit(); });
    AddAction(menu, EText::ZoomIn, QKeySequence::ZoomIn, [this] { Zoom(c_zoomStep); });
    AddAction(menu, EText::ZoomOut, QKeySequence::ZoomOut, [this] { Zoom(1 / c_zoomStep); });
    menu.addSeparator();
    menu.addAction(m_processing->toggleViewAction());
    menu.addAction(m_results->toggleViewAction());
    menu.addAction(m_view->toggleViewAction());
    m_see->AddSwitches(menu);
    menu.addSeparator();
    QMenu& colors = *menu.addMenu(QText(EText::Colors));
    auto* const group = new QActionGroup(&colors);
    for (const auto& [text, scheme] : {std::pair(EText::SystemColors, EInterfaceScheme::System),
                                       {EText::LightColors, EInterfaceScheme::Light},
                                       {EText::DarkColors, EInterfaceScheme::Dark}}) {
        QAction* const action = group->addAction(colors.addAction(QText(text)));
        action->setCheckable(true);
        action->setChecked(m_store.colors == scheme);
        connect(action, &QAction::triggered, this, [this, chosen = scheme] {
            m_store.colors = chosen;
            m_interfaceColors.SetChoice(chosen);
        });
    }
}

void CWorkbenchWindow::MakeOtherMenus()
{
    m_see->AddMenu();
    QMenu& analyze = *menuBar()->addMenu(QText(EText::AnalyzeMenu));
    m_parameters = AddAction(analyze, EText::Parameters, QKeySequence(Qt::CTRL | Qt::Key_R),
                             [this] { ChooseParameters(); });
    QAction* const series = analyze.addAction(QText(ESeriesText::Command));
    series->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
    connect(series, &QAction::triggered, this, &CWorkbenchWindow::ShowSeries);
    QMenu& help = *menuBar()->addMenu(QText(EText::HelpMenu));
    AddAction(help, EText::HelpContents, QKeySequence::HelpContents,
              [] { GetHelpService().Open(c_helpTopic); });
    connect(help.addAction(QText(ESeeText::Diagnostics)), &QAction::triggered, this,
            &CWorkbenchWindow::ShowDiagnostics);
    AddAction(help, EText::About, {}, [this] { ShowAbout(); })->setMenuRole(QAction::AboutRole);
}

void CWorkbenchWindow::MakeToolBar()
{
    QToolBar& bar = *addToolBar(QText(EText::Tools));
    bar.setObjectName(QStringLiteral("Workbench.Tools"));
    bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar.addAction(m_open);
    bar.addSeparator();
    bar.addAction(m_showMap);
    bar.addAction(m_showBlock);
    bar.addAction(m_fit);
    bar.addSeparator();
    bar.addAction(m_parameters);
    bar.addSeparator();
    auto* const label = new QLabel(QText(EText::ColorScale));
    label->setMargin(fontMetrics().height() / 3);
    bar.addWidget(label);
    m_scales = new CSettingsButton(ESettingType::ColorScale);
    m_scales->setAccessibleName(QText(EText::ColorScale).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    label->setBuddy(m_scales);
    bar.addWidget(m_scales);
    m_see->AddToolBar();
    m_scales->GetMenu().GetChosen().Subscribe(*this, &CWorkbenchWindow::OnScale, m_scaleConnection);
}

void CWorkbenchWindow::MakePanes()
{
    m_results = new CResultPane;
    m_view = new CViewPane;
    m_processing = new CProcessingPane;
    m_processing->AddTo(*this, Qt::LeftDockWidgetArea);
    for (CDockPane* const pane : {static_cast<CDockPane*>(m_results), static_cast<CDockPane*>(m_view)})
        pane->AddTo(*this, Qt::RightDockWidgetArea);
    m_results->SetChoice(m_store.analysis);
    connect(m_results, &CResultPane::Chosen, this, &CWorkbenchWindow::Save);
    connect(m_results, &CResultPane::ChoiceChanged, this,
            [this](const SAnalysisChoice& choice) { m_store.analysis = choice; });
    m_see = new CSeeTools(*this);
    connect(m_see, &CSeeTools::Chosen, this, &CWorkbenchWindow::Save);
    connect(m_view, &CViewPane::LookChanged, this, &CWorkbenchWindow::OnLook);
}

std::vector<CSurfacePage*> CWorkbenchWindow::GetPages() const
{
    std::vector<CSurfacePage*> pages;
    for (const STab& tab : m_tabs.GetTabs())
        if (auto* const page = qobject_cast<CSurfacePage*>(m_tabWindow->GetPage(tab.key)))
            pages.push_back(page);
    return pages;
}

CSurfacePage* CWorkbenchWindow::GetPage() const
{
    const auto current = m_tabs.GetCurrent();
    return current ? qobject_cast<CSurfacePage*>(m_tabWindow->GetPage(m_tabs.GetTabs()[*current].key))
                   : nullptr;
}

void CWorkbenchWindow::ChooseFile()
{
    CStr path;
    if (GetFileDialogService().Choose({.filter = c_filter, .memoryKey = c_memoryKey}, path))
        OpenFiles({path});
}

// The files are not looked for: a drive that does not answer would keep the menu waiting.
void CWorkbenchWindow::FillRecent()
{
    m_recent->clear();
    m_recent->setToolTipsVisible(true);
    int number = 0;
    for (const CStr& path : m_store.files.GetAll()) {
        const QString name = ToQString(GetFileName(path)).replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* const action = m_recent->addAction(QStringLiteral("&%1 %2").arg(++number % 10).arg(name));
        action->setToolTip(ToQString(path));
        connect(action, &QAction::triggered, this, [this, path] { OpenFiles({path}); });
    }
    if (number == 0) {
        m_recent->addAction(QText(EText::NoRecent))->setEnabled(false);
        return;
    }
    m_recent->addSeparator();
    connect(m_recent->addAction(QText(EText::ClearRecent)), &QAction::triggered, this,
            [this] { m_store.files.Set({}); });
}

void CWorkbenchWindow::OpenFiles(const std::vector<CStr>& paths)
{
    for (const CStr& path : paths)
        if (!OpenFile(path))
            return;
}

// @return false when the user wants no more files
bool CWorkbenchWindow::OpenFile(const CStr& name)
{
    // What is kept of it shall name the file also where the program is started in another folder.
    const CStr path = MakeAbsolute(name);
    if (const auto open = m_tabs.Find(path)) {
        m_tabs.SetCurrent(*open);
        return true;
    }
    try {
        auto surface = OpenSurface(this, ToPath(path), m_read);
        if (!surface)
            return false;
        AddPage(std::move(surface));
        m_store.files.Add(path);
    } catch (const std::exception& error) {
        Tell(CStr::FromUtf8(error.what()));
    }
    return true;
}

CSurfacePage& CWorkbenchWindow::AddPage(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
{
    CStr path;
    ToText(surface->path, path);
    auto* const page = new CSurfacePage(std::move(surface));
    const CPreferencesData& preferences = GetPreferencesManager().GetData();
    page->SetDriver(preferences.Get3DAccelerationMode(), preferences.Get3DPreviewTargetTime());
    page->SetColors(m_scale);
    page->SetLook(m_store.look);
    page->ShowViews(m_store.showsMap, m_store.showsBlock);
    connect(page, &CSurfacePage::PointRead, m_point, &QLabel::setText);
    connect(page, &CSurfacePage::LookChanged, this, &CWorkbenchWindow::ShareLook);
    connect(page, &CSurfacePage::SurfaceChanged, this, &CWorkbenchWindow::OnCurrentTab);
    connect(page, &CSurfacePage::FileChanged, this, &CWorkbenchWindow::ShowNotice);
    page->GetProcessing().GetApplied().Subscribe(*this, &CWorkbenchWindow::KeepSession,
                                                 m_appliedConnections[page]);
    connect(page, &QObject::destroyed, this, [this, page] { m_appliedConnections.erase(page); });
    m_tabWindow->AddPage(TabOf(path), *page);
    m_tabs.SetCurrent(*m_tabs.Find(path));
    return *page;
}

void CWorkbenchWindow::ClosePage()
{
    if (const auto current = m_tabs.GetCurrent())
        m_tabs.Close(*current);
}

void CWorkbenchWindow::OnCurrentTab()
{
    CSurfacePage* const page = GetPage();
    m_center->setCurrentWidget(page ? static_cast<QWidget*>(m_tabWindow) : m_hint);
    for (QAction* const action : {m_close, m_fit, m_saveSurface, m_saveReport})
        action->setEnabled(page);
    m_processing->SetPage(page);
    ShowNotice();
    KeepSession();
    m_point->clear();
    m_see->SetPage(page);
    const auto input = page ? page->GetSurface().input : nullptr;
    m_results->SetSurface(page ? page->ShareSurface() : nullptr, GetOthers(page),
                          page ? &page->GetGrains() : nullptr);
    if (m_series)
        m_series->Update();
    if (input == m_shown)
        return;
    m_shown = input;
    m_view->setEnabled(page && page->GetBlock());
    const QString name =
        page ? ToQString(CStr::FromUtf8(page->GetSurface().GetSurface().fileName)) : QString();
    setWindowTitle(page ? name + QStringLiteral(" – ") + QText(EText::ProgramName)
                        : QText(EText::ProgramName));
    if (page && page->GetBlock())
        m_view->SetLook(page->GetBlock()->GetLook(), page->GetSurface().box->exaggeration);
}

std::vector<SOtherSurface> CWorkbenchWindow::GetOthers(const CSurfacePage* page) const
{
    std::vector<SOtherSurface> others;
    for (const CSurfacePage* const other : GetPages()) {
        if (other == page)
            continue;
        const SurfaceView::SViewedSurface& surface = other->GetSurface();
        CStr path;
        ToText(surface.path, path);
        others.push_back({path, CStr::FromUtf8(surface.GetSurface().fileName), surface.input});
    }
    return others;
}

void CWorkbenchWindow::Zoom(double factor) const
{
    if (CSurfacePage* const page = GetPage())
        page->Zoom(factor);
}

void CWorkbenchWindow::Fit() const
{
    if (CSurfacePage* const page = GetPage())
        page->Fit();
}

// The last view that is switched off brings the other one back.
void CWorkbenchWindow::OnViews(QAction& other)
{
    if (!m_showMap->isChecked() && !m_showBlock->isChecked())
        other.setChecked(true);
    m_store.showsMap = m_showMap->isChecked();
    m_store.showsBlock = m_showBlock->isChecked();
    for (CSurfacePage* const page : GetPages())
        page->ShowViews(m_store.showsMap, m_store.showsBlock);
}

void CWorkbenchWindow::OnProjection()
{
    m_store.look.isParallel = m_parallel->isChecked();
    ShareLookOf(m_store.look);
}

// Light and projection are those of all surfaces, the exaggeration is that of one.
void CWorkbenchWindow::ShareLookOf(const SBlockLook& look)
{
    m_store.look = look;
    m_store.look.exaggeration = 0;
    for (CSurfacePage* const page : GetPages()) {
        if (!page->GetBlock())
            continue;
        SBlockLook own = m_store.look;
        own.exaggeration = page->GetBlock()->GetLook().exaggeration;
        page->SetLook(own);
    }
}

void CWorkbenchWindow::OnLook(const SBlockLook& look)
{
    SBlockLook shown = look;
    shown.isParallel = m_store.look.isParallel;
    if (CSurfacePage* const page = GetPage())
        page->SetLook(shown);
    ShareLookOf(shown);
}

// The user has moved the light in a view.
void CWorkbenchWindow::ShareLook()
{
    CSurfacePage* const page = GetPage();
    if (!page || !page->GetBlock())
        return;
    ShareLookOf(page->GetBlock()->GetLook());
    m_view->SetLook(page->GetBlock()->GetLook(), page->GetSurface().box->exaggeration);
}

void CWorkbenchWindow::OnScale(CSettings& settings)
{
    SColorScale scale;
    if (!scale.Load(settings)) {
        Tell(CStr::Format(Text(EText::NoScale), settings.GetEntryInfo().m_Name));
        return;
    }
    m_scale = scale;
    m_store.colorScale = ReferenceOf(settings.GetEntryInfo());
    for (CSurfacePage* const page : GetPages())
        page->SetColors(scale);
}

void CWorkbenchWindow::RestoreScale()
{
    for (const CStr& reference :
         {m_store.colorScale, MakeReference(EBuiltInSetting::CSQuickLaunchDefault3D)}) {
        try {
            auto set =
                Measurement::LoadReferredSet(GetSettingsFactory(), ESettingType::ColorScale, reference);
            if (!m_scale.Load(set.settings))
                continue;
            m_scales->GetMenu().SetCurrent(set.settings.GetEntryInfo());
            return;
        } catch (const Measurement::ERequest&) {
            continue; // a file that is gone
        }
    }
}

void CWorkbenchWindow::ChooseParameters()
{
    m_results->Choose();
}

SSeriesSource CWorkbenchWindow::GetSeriesSource() const
{
    SAnalysisRequest request = m_results->GetRequest();
    request.method.grains.reset(); // a height that was entered is that of one surface
    SSeriesSource source{.analysis = request.analysis,
                         .options = std::move(request.options),
                         .method = std::move(request.method),
                         .read = m_read};
    for (CSurfacePage* const page : GetPages()) {
        CStr path;
        ToText(page->GetSurface().path, path);
        source.open.push_back({.name = CStr::FromUtf8(page->GetSurface().GetSurface().fileName),
                               .path = path,
                               .input = page->GetProcessing().GetOriginal(),
                               .steps = page->GetProcessing().GetSteps()});
    }
    if (CSurfacePage* const page = GetPage())
        source.steps = page->GetProcessing().GetSteps();
    return source;
}

void CWorkbenchWindow::ShowSeries()
{
    if (!m_series) {
        m_series = new CSeriesWindow([this] { return GetSeriesSource(); }, this);
        m_series->GetForm().SetChoice(m_store.series);
        connect(m_series, &CSeriesWindow::ChoiceChanged, this,
                [this](const SSeriesChoice& choice) { m_store.series = choice; });
    }
    m_series->show();
    m_series->raise();
    m_series->activateWindow();
}

QString CWorkbenchWindow::GetAboutText() const
{
    QString driver = QText(EText::NoDriver);
    CSurfacePage* const page = GetPage();
    if (page && page->GetBlock() && page->GetBlock()->isValid()) {
        page->GetBlock()->makeCurrent();
        const auto text = [](GLenum name) {
            const auto* const bytes = QOpenGLContext::currentContext()->functions()->glGetString(name);
            return QString::fromUtf8(reinterpret_cast<const char*>(bytes));
        };
        driver = text(GL_VERSION) + QStringLiteral(", ") + text(GL_RENDERER);
        page->GetBlock()->doneCurrent();
    }
    return ToQString(CStr::Format(Text(EText::AboutText), GetVersion(),
                                  FromQString(QString::fromLatin1(qVersion())), FromQString(driver)));
}

void CWorkbenchWindow::ShowAbout()
{
    QMessageBox box(this);
    box.setWindowTitle(QText(EText::About).remove(QLatin1Char('&')));
    box.setTextFormat(Qt::PlainText);
    box.setIconPixmap(windowIcon().pixmap(4 * fontMetrics().height()));
    box.setText(QText(EText::ProgramName));
    box.setInformativeText(GetAboutText());
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.exec();
}

QString CWorkbenchWindow::GetDiagnosticsText() const
{
    CStr folder;
    ToText(GetFolders().GetSettingsFolder(), folder);
    QStringList lines{GetAboutText(), ToQString(CStr::Format(Text(ESeeText::SettingsIn), folder)),
                      QSysInfo::prettyProductName() + QStringLiteral(", ") +
                          QSysInfo::currentCpuArchitecture() + QStringLiteral(", ") +
                          QGuiApplication::platformName(),
                      QString()};
    const auto append = [&lines](const std::vector<CStr>& texts) {
        for (const CStr& text : texts)
            lines += ToQString(text).trimmed();
        lines += QString();
    };
    CSurfacePage* const page = GetPage();
    if (page && page->GetBlock() && page->GetBlock()->isValid()) {
        page->GetBlock()->makeCurrent();
        CGLService service;
        const CServiceScope<CGLEntryPoints> scope(service);
        append(TakeReport([] {
            COpenGLWrapper::DiagnoseOutputOpenGLStrings(nullptr);
            COpenGLWrapper::DiagnoseOutputPixelStore();
            COpenGLWrapper::DiagnoseOutputStacks();
            COpenGLWrapper::DiagnoseOutputError();
        }));
        page->GetBlock()->doneCurrent();
    }
    const std::vector<CStr> messages = m_messages.GetMessages();
    lines += QText(messages.empty() ? ESeeText::NoMessages : ESeeText::Messages);
    append(messages);
    return lines.join(QLatin1Char('\n'));
}

void CWorkbenchWindow::ShowDiagnostics()
{
    CDiagnosticsDialog(GetDiagnosticsText(), this).exec();
}

// When the window is there.
void CWorkbenchWindow::TellOfStore()
{
    CStr text;
    for (const CStr& sentence : m_store.GetAccount().GetSentences())
        text += (text.IsEmpty() ? CStr() : u"\n\n") + sentence;
    if (!text.IsEmpty())
        QMetaObject::invokeMethod(
            this, [text] { Tell(text); }, Qt::QueuedConnection);
}

void CWorkbenchWindow::Save()
{
    CStr reason;
    if (!m_store.Save(reason))
        Tell(CStr::Format(Text(EText::NotKept), reason));
}

// A session that cannot be kept is told of once.
void CWorkbenchWindow::KeepSession()
{
    if (!m_session)
        return;
    Measurement::CSession session;
    for (CSurfacePage* const page : GetPages()) {
        CStr path;
        ToText(page->GetSurface().path, path);
        session.push_back({path, page->GetProcessing().GetSteps()});
    }
    CStr reason;
    const bool isKept = m_session->Write(session, reason);
    if (!isKept && m_isJournalGood)
        statusBar()->showMessage(ToQString(CStr::Format(Text(EText::NoJournal), reason)));
    m_isJournalGood = isKept;
}

// @return whether the surface is open with its steps
bool CWorkbenchWindow::OpenAgain(const Measurement::SSessionSurface& surface)
{
    OpenFile(surface.path);
    if (!m_tabs.Find(MakeAbsolute(surface.path)))
        return false;
    Measurement::CSurfaceProcessing& processing = GetPage()->GetProcessing();
    if (processing.GetSteps().empty() && !surface.steps.empty())
        processing.Take(surface.steps, Text(EText::Steps));
    return true;
}

void CWorkbenchWindow::OfferSessions()
{
    for (Measurement::CDeadJournal& journal : Measurement::FindDeadJournals(m_store.GetFolder())) {
        if (!journal.GetDamage().IsEmpty()) {
            Tell(journal.GetDamage());
            continue;
        }
        const Measurement::CSession& session = journal.GetSession();
        const CStr question = CStr::Format(Text(EText::OfferSession), static_cast<int>(session.size()));
        Measurement::CSession rest;
        bool isForgotten = session.empty();
        const bool isOpened =
            !session.empty() &&
            GetMessageBoxService().ShowWithCheck(
                {.text = question, .style = MessageBoxStyle::c_okCancel | MessageBoxStyle::c_question},
                Text(EText::ForgetSession), isForgotten) == EMessageBoxAnswer::Ok;
        if (isOpened)
            std::ranges::copy_if(session, std::back_inserter(rest),
                                 [this](const auto& surface) { return !OpenAgain(surface); });
        if (isForgotten)
            journal.Remove();
        else if (isOpened)
            journal.Keep(rest);
    }
}

void CWorkbenchWindow::EndSession()
{
    if (m_session)
        m_session->Close();
    m_session.reset();
}

void CWorkbenchWindow::ShowNotice()
{
    CSurfacePage* const page = GetPage();
    const bool isChanged = page && page->IsFileChanged();
    m_notice->SetText(isChanged
                          ? ToQString(CStr::Format(Text(EText::FileChanged),
                                                   CStr::FromUtf8(page->GetSurface().GetSurface().fileName)))
                          : QString());
}

void CWorkbenchWindow::ReloadPage()
{
    const QPointer<CSurfacePage> page = GetPage();
    try {
        const auto surface = OpenSurface(this, page->GetSurface().path, m_read);
        if (surface && page)
            page->Reload(*surface);
    } catch (const std::exception& error) {
        Tell(CStr::FromUtf8(error.what()));
    }
    ShowNotice();
}

// @return a clause why the surface of a page cannot be saved under a name; empty where it can
CStr CWorkbenchWindow::FindReasonNotToSave(CSurfacePage& page, const CStr& path) const
{
    if (page.GetProcessing().IsBusy())
        return Text(EText::StepsNotDone);
    if (!page.GetProcessing().GetFailure().IsEmpty())
        return page.GetProcessing().GetFailure();
    return FindReasonNotToWrite(path);
}

// Likewise of anything: the surfaces that are open are read from their files again.
CStr CWorkbenchWindow::FindReasonNotToWrite(const CStr& path) const
{
    const auto isIt = [&](const CSurfacePage* open) {
        std::error_code error;
        return std::filesystem::equivalent(open->GetSurface().path, ToPath(path), error);
    };
    return std::ranges::any_of(GetPages(), isIt) ? Text(EText::IsOpen) : CStr();
}

void CWorkbenchWindow::SaveSurfaceAs()
{
    CSurfacePage* const page = GetPage();
    CStr path;
    if (!page ||
        !GetFileDialogService().Choose(
            {.forOpen = false, .filter = GetSaveFilter(), .extension = u"sdf", .memoryKey = u"SavedSurfaces"},
            path))
        return;
    if (const CStr reason = FindReasonNotToSave(*page, path); !reason.IsEmpty()) {
        Tell(CStr::Format(Text(EText::NotSaved), CStr(GetFileName(path)), reason));
        return;
    }
    try {
        SaveSurface(this, page->GetSurface().input, path);
    } catch (const std::exception& error) {
        Tell(CStr::FromUtf8(error.what()));
    }
}

void CWorkbenchWindow::ShowReport()
{
    const auto save = [this](const SReportTemplateSettings& layout, const SReportChoice& choice) {
        return SaveReport(layout, choice.hasPictures, choice.opens);
    };
    CReportDialog dialog(
        m_store.report, save, [this](const CStr& path) { return FindReasonNotToWrite(path); }, this);
    dialog.exec();
    m_store.report = dialog.GetChoice();
}

// @return whether it is saved
bool CWorkbenchWindow::SaveReport(const SReportTemplateSettings& layout, bool hasPictures, bool opens)
{
    CSurfacePage* const page = GetPage();
    if (!page)
        return false;
    const CStr extension = CStr::FromUtf8(Measurement::GetDocumentExtension(layout));
    const CStr mask = u"*" + extension;
    CStr path;
    if (!GetFileDialogService().Choose(
            {.forOpen = false,
             .filter = mask.Mid(2, mask.GetLength()) + u" (" + mask + u")|" + mask + u"||",
             .extension = extension.Mid(1, extension.GetLength()),
             .memoryKey = u"Reports"},
            path))
        return false;
    if (const CStr reason = FindReasonNotToSave(*page, path); !reason.IsEmpty()) {
        Tell(CStr::Format(Text(EText::NotSaved), CStr(GetFileName(path)), reason));
        return false;
    }
    try {
        const auto choices = Measurement::ChooseForTemplate(
            layout, {.method = m_results->GetGrains().GetMethod(), .usesPreferences = true},
            GetAnalysisPreferencesManager());
        if (!SaveInBackground(this, path, [=, input = page->GetSurface().input] {
                return MakeTemplateDocument(layout, *input, choices, hasPictures);
            }))
            return false;
    } catch (const std::exception& error) {
        Tell(CStr::FromUtf8(error.what()));
        return false;
    }
    if (opens)
        GetFileManager().OpenFile(path);
    return true;
}

void CWorkbenchWindow::closeEvent(QCloseEvent* event)
{
    hide(); // by which window and panes remember where they are
    Save();
    EndSession();
    QMainWindow::closeEvent(event);
}

void CWorkbenchWindow::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (std::ranges::any_of(urls, &QUrl::isLocalFile))
        event->acceptProposedAction();
}

void CWorkbenchWindow::dropEvent(QDropEvent* event)
{
    std::vector<CStr> paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.push_back(FromQString(url.toLocalFile()));
    event->acceptProposedAction();
    // Whoever drags waits for the end of the drop.
    QMetaObject::invokeMethod(
        this, [this, paths] { OpenFiles(paths); }, Qt::QueuedConnection);
}

} // namespace Workbench
