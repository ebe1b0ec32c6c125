#pragma once

#include "workbench/see/CurvePane.h"
#include "workbench/see/MarkEditor.h"
#include "workbench/see/MarkPane.h"
#include "workbench/see/ProfilePane.h"

#include <QPointer>

#include <vector>

class QAction;
class QMainWindow;
class QMenu;

namespace Workbench
{

class CSurfacePage;

/// What the workbench has for looking at a surface beside its views: the tools of the map, in a menu and a
/// tool bar, and the docks with what they show, all of the page in front.
class CSeeTools : public QObject
{
    Q_OBJECT

public:
    /// @param window owns the tools, the menu and the docks
    explicit CSeeTools(QMainWindow& window);
    ~CSeeTools() override;

    /// Adds the menu of tools to the window's menu bar.
    void AddMenu();
    void AddToolBar();
    /// Adds the switches of the docks.
    void AddSwitches(QMenu& menu) const;
    /// @param page null for none
    void SetPage(CSurfacePage* page);

    QAction& GetAction(EMapTool tool) const { return *m_tools[static_cast<std::size_t>(tool)]; }
    CMarkPane& GetMarks() noexcept { return *m_marks; }
    CProfilePane& GetProfiles() noexcept { return *m_profiles; }
    CCurvePane& GetCurves() noexcept { return *m_curves; }

Q_SIGNALS:
    /// The user has changed the preferences of an analysis.
    void Chosen();

private:
    std::vector<CommonUI::CDockPane*> GetPanes() const;
    void MakeActions();
    void MakePanes();
    void OnTool(EMapTool tool);
    void OnSurface();

    QMainWindow& m_window;
    QPointer<CSurfacePage> m_page;
    EMapTool m_tool = EMapTool::Move;
    std::vector<QAction*> m_tools;
    QAction* m_delete = nullptr;
    CMarkPane* m_marks = nullptr;
    CProfilePane* m_profiles = nullptr;
    CCurvePane* m_curves = nullptr;
};

} // namespace Workbench
