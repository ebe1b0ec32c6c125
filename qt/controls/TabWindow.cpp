#include "qt/controls/TabWindow.h"

#include "qt/controls/detail/ControlTexts.h"
#include "qt/detail/EventGuard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QTabBar>
#include <QToolButton>

#include <utility>

namespace CommonUI
{

CTabWindow::CTabWindow(CTabs& tabs, QWidget* parent)
    : QTabWidget(parent)
    , m_tabs(tabs)
{
    setMovable(true);
    setTabsClosable(true);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    setDocumentMode(true);
    AddTabList();
    AddKeys();
    connect(this, &QTabWidget::currentChanged, this, [this](int index) {
        if (!m_showing && index >= 0)
            Guarded([&] { m_tabs.SetCurrent(static_cast<std::size_t>(index)); });
    });
    connect(tabBar(), &QTabBar::tabMoved, this, [this](int from, int to) {
        if (!m_showing)
            Guarded([&] { m_tabs.Move(static_cast<std::size_t>(from), static_cast<std::size_t>(to)); });
    });
    connect(this, &QTabWidget::tabCloseRequested, this, &CTabWindow::CloseTab);
    tabBar()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tabBar(), &QTabBar::customContextMenuRequested, this, &CTabWindow::ShowMenu);
    m_tabs.GetTabsChanged().Subscribe(*this, &CTabWindow::OnTabs, m_tabsConnection);
    m_tabs.GetCurrentChanged().Subscribe(*this, &CTabWindow::OnCurrent, m_currentConnection);
}

CTabWindow::~CTabWindow()
{
    // The pages go one by one, and the tabs may be gone.
    blockSignals(true);
    tabBar()->blockSignals(true);
    if (m_switching)
        qApp->removeEventFilter(this);
}

void CTabWindow::AddTabList()
{
    auto* const button = new QToolButton;
    button->setArrowType(Qt::DownArrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    const QString name = GetQString(c_allTabs).remove(QLatin1Char('&'));
    button->setAccessibleName(name);
    button->setToolTip(name);
    auto* const menu = new QMenu(button);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        for (int i = 0; i < count(); ++i) {
            QAction* const action = menu->addAction(tabText(i), this, [this, i] { setCurrentIndex(i); });
            action->setCheckable(true);
            action->setChecked(i == currentIndex());
        }
    });
    // A menu of the button would give it another arrow.
    connect(button, &QToolButton::clicked, menu,
            [button, menu] { menu->popup(button->mapToGlobal(button->rect().bottomLeft())); });
    setCornerWidget(button);
}

void CTabWindow::AddKeys()
{
    const auto add = [this](const QKeySequence& keys, void (CTabWindow::*act)(int)) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, act] { (this->*act)(currentIndex()); });
    };
    add(Qt::CTRL | Qt::Key_F4, &CTabWindow::CloseTab);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp, &CTabWindow::MoveLeft);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown, &CTabWindow::MoveRight);
    const auto go = [this](const QKeySequence& keys, int step) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, step] {
            if (count() > 0)
                setCurrentIndex((currentIndex() + step + count()) % count());
        });
    };
    go(Qt::CTRL | Qt::Key_PageUp, -1);
    go(Qt::CTRL | Qt::Key_PageDown, 1);
}

void CTabWindow::AddPage(const STab& tab, QWidget& page)
{
    m_pages[tab.key] = &page;
    m_tabs.Add(tab);
}

QWidget* CTabWindow::GetPage(const CStr& key) const
{
    const auto found = m_pages.find(key);
    return found == m_pages.end() ? nullptr : found->second;
}

// Brings Qt's tabs into the order of the tabs.
void CTabWindow::OnTabs()
{
    const bool before = std::exchange(m_showing, true);
    for (auto page = m_pages.begin(); page != m_pages.end();) {
        if (!m_tabs.Find(page->first)) {
            removeTab(indexOf(page->second));
            page->second->deleteLater();
            page = m_pages.erase(page);
        } else {
            ++page;
        }
    }
    int place = 0;
    for (const STab& tab : m_tabs.GetTabs()) {
        QWidget* const page = GetPage(tab.key);
        if (!page)
            continue;
        if (indexOf(page) < 0)
            insertTab(place, page, QString());
        else if (indexOf(page) != place)
            tabBar()->moveTab(indexOf(page), place);
        setTabText(place, ToQString(tab.title).replace(QLatin1Char('&'), QLatin1String("&&")));
        if (!tab.closable)
            tabBar()->setTabButton(place, QTabBar::RightSide, nullptr);
        ++place;
    }
    m_showing = before;
    OnCurrent();
}

void CTabWindow::OnCurrent()
{
    const bool before = std::exchange(m_showing, true);
    const auto current = m_tabs.GetCurrent();
    if (current)
        if (QWidget* const page = GetPage(m_tabs.GetTabs()[*current].key))
            setCurrentWidget(page);
    m_showing = before;
}

void CTabWindow::CloseTab(int index)
{
    Guarded([&] { m_tabs.Close(static_cast<std::size_t>(index)); });
}

void CTabWindow::CloseOthers(int index)
{
    Guarded([&] { m_tabs.CloseOthers(static_cast<std::size_t>(index)); });
}

void CTabWindow::MoveLeft(int index)
{
    if (index > 0)
        Guarded([&] { m_tabs.Move(static_cast<std::size_t>(index), static_cast<std::size_t>(index) - 1); });
}

void CTabWindow::MoveRight(int index)
{
    Guarded([&] { m_tabs.Move(static_cast<std::size_t>(index), static_cast<std::size_t>(index) + 1); });
}

void CTabWindow::AddCommand(QMenu& menu, int textId, bool enabled, void (CTabWindow::*act)(int), int index)
{
    QAction* const action =
        menu.addAction(GetQString(textId), this, [this, act, index] { (this->*act)(index); });
    action->setEnabled(enabled);
}

// Also from the keyboard, then for the tab in front.
void CTabWindow::ShowMenu(const QPoint& place)
{
    const int at = tabBar()->tabAt(place);
    const int index = at < 0 ? currentIndex() : at;
    if (index < 0)
        return;
    QMenu menu;
    const bool closable = m_tabs.GetTabs()[static_cast<std::size_t>(index)].closable;
    AddCommand(menu, c_closeTab, closable, &CTabWindow::CloseTab, index);
    AddCommand(menu, c_closeOthers, count() > 1, &CTabWindow::CloseOthers, index);
    menu.addSeparator();
    AddCommand(menu, c_moveLeft, index > 0, &CTabWindow::MoveLeft, index);
    AddCommand(menu, c_moveRight, index + 1 < count(), &CTabWindow::MoveRight, index);
    menu.exec(tabBar()->mapToGlobal(place));
}

void CTabWindow::Switch(bool backward)
{
    if (!std::exchange(m_switching, true))
        qApp->installEventFilter(this);
    Guarded([&] { m_tabs.SwitchToNext(backward); });
}

void CTabWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (isTab && (event->modifiers() & Qt::ControlModifier))
        Switch(event->key() == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier));
    else
        QTabWidget::keyPressEvent(event);
}

// Ctrl may be released wherever the keyboard is by then.
bool CTabWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isRelease =
        event->type() == QEvent::KeyRelease && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Control;
    if (isRelease || event->type() == QEvent::ApplicationDeactivate) {
        qApp->removeEventFilter(this);
        m_switching = false;
        Guarded([this] { m_tabs.EndSwitching(); });
    }
    return QTabWidget::eventFilter(watched, event);
}

} // namespace CommonUI
