#pragma once

#include "../../controls/tabs/Tabs.h"
#include "../../export/Export.h"

#include <QTabWidget>

#include <map>

class QMenu;

namespace CommonUI
{

/// A tab window: pages whose tabs can be dragged and closed. Ctrl+Tab goes through them by last use, as long
/// as Ctrl is held; Ctrl+Page Up and Ctrl+Page Down go by place, with Shift they move the tab; Ctrl+F4
/// closes. A button lists all tabs, also those that have no room; the tabs have a context menu.
class COMMONUIQT_API CTabWindow : public QTabWidget
{
    Q_OBJECT

public:
    /// @param tabs not owned; they live as long as the window is used, and may go first when both go
    explicit CTabWindow(CTabs& tabs, QWidget* parent = nullptr);
    ~CTabWindow() override;

    /// Adds a tab with a page, which the window owns, and which goes when the tab is closed.
    void AddPage(const STab& tab, QWidget& page);
    /// Null when there is none.
    QWidget* GetPage(const CStr& key) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddKeys();
    void AddTabList();
    void OnTabs();
    void OnCurrent();
    void ShowMenu(const QPoint& place);
    void AddCommand(QMenu& menu, int textId, bool enabled, void (CTabWindow::*act)(int), int index);
    void CloseTab(int index);
    void CloseOthers(int index);
    void MoveLeft(int index);
    void MoveRight(int index);
    void Switch(bool backward);

    CTabs& m_tabs;
    std::map<CStr, QWidget*> m_pages;
    bool m_showing = false; // what the tabs say, which need not be told again
    bool m_switching = false;
    CClosureConnection m_tabsConnection;
    CClosureConnection m_currentConnection;
};

} // namespace CommonUI
