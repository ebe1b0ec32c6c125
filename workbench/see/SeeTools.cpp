#include "workbench/see/SeeTools.h"

#include "workbench/see/SeeTexts.h"
#include "workbench/SurfacePage.h"
#include "workbench/Texts.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

namespace Workbench
{

CSeeTools::CSeeTools(QMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    MakeActions();
    MakePanes();
}

CSeeTools::~CSeeTools() = default;

void CSeeTools::MakeActions()
{
    auto* const group = new QActionGroup(this);
    struct STool {
        ESeeText text;
        EMapTool tool;
        Qt::Key key;
    };
    for (const auto& [text, tool, key] : {STool{ESeeText::MoveTool, EMapTool::Move, Qt::Key_M},
                                          {ESeeText::ProfileTool, EMapTool::Profile, Qt::Key_P},
                                          {ESeeText::DistanceTool, EMapTool::Distance, Qt::Key_D},
                                          {ESeeText::AngleTool, EMapTool::Angle, Qt::Key_A}}) {
        auto* const action = new QAction(QText(text), group);
        action->setCheckable(true);
        action->setChecked(tool == m_tool);
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | key));
        connect(action, &QAction::triggered, this, [this, chosen = tool] { OnTool(chosen); });
        m_tools.push_back(action);
    }
    m_delete = new QAction(QText(ESeeText::DeleteLine), this);
    connect(m_delete, &QAction::triggered, this, [this] {
        if (m_page)
            m_page->GetMarks().RemoveChosen();
    });
}

// Closed until they are wanted; what lies at one edge lies in tabs.
void CSeeTools::MakePanes()
{
    m_marks = new CMarkPane;
    m_profiles = new CProfilePane;
    m_curves = new CCurvePane;
    for (CommonUI::CDockPane* const pane : GetPanes()) {
        pane->hide();
        pane->AddTo(m_window, Qt::BottomDockWidgetArea);
        if (pane != m_profiles && !pane->isFloating() &&
            m_window.dockWidgetArea(pane) == m_window.dockWidgetArea(m_profiles))
            m_window.tabifyDockWidget(m_profiles, pane);
    }
    connect(&m_profiles->GetRoughness(), &CAnalysisView::Chosen, this, &CSeeTools::Chosen);
}

std::vector<CommonUI::CDockPane*> CSeeTools::GetPanes() const
{
    return {m_profiles, m_marks, m_curves};
}

void CSeeTools::AddMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(QText(ESeeText::ToolsMenu));
    for (QAction* const tool : m_tools)
        menu.addAction(tool);
    menu.addSeparator();
    menu.addAction(m_delete);
}

void CSeeTools::AddToolBar()
{
    QToolBar& bar = *m_window.addToolBar(QText(ESeeText::ToolsMenu).remove(QLatin1Char('&')));
    bar.setObjectName(QStringLiteral("Workbench.MapTools"));
    for (QAction* const tool : m_tools)
        bar.addAction(tool);
}

void CSeeTools::AddSwitches(QMenu& menu) const
{
    for (const CommonUI::CDockPane* const pane : GetPanes())
        menu.addAction(pane->toggleViewAction());
}

void CSeeTools::OnTool(EMapTool tool)
{
    m_tool = tool;
    if (!m_page)
        return;
    m_page->GetMarks().SetTool(tool);
    m_page->GetMap().setFocus();
    if (tool == EMapTool::Move)
        return;
    // What is drawn shall be seen.
    CommonUI::CDockPane* const pane =
        tool == EMapTool::Profile ? static_cast<CommonUI::CDockPane*>(m_profiles) : m_marks;
    pane->show();
    pane->raise();
}

void CSeeTools::SetPage(CSurfacePage* page)
{
    if (page != m_page) {
        if (m_page)
            m_page->disconnect(this);
        m_page = page;
        if (page)
            connect(page, &CSurfacePage::SurfaceChanged, this, &CSeeTools::OnSurface);
    }
    for (QAction* const tool : m_tools)
        tool->setEnabled(page);
    m_delete->setEnabled(page);
    if (page)
        page->GetMarks().SetTool(m_tool);
    m_marks->SetEditor(page ? &page->GetMarks() : nullptr);
    m_profiles->SetEditor(page ? &page->GetMarks() : nullptr);
    OnSurface();
}

void CSeeTools::OnSurface()
{
    m_curves->SetSurface(m_page ? m_page->ShareSurface() : nullptr);
}

} // namespace Workbench
