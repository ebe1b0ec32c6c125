#include "qt/framework/DockPane.h"

#include "dialogs/placement/PlacementManager.h"
#include "qt/framework/WindowPlacer.h"
#include "qt/QtText.h"

#include <QEvent>
#include <QMainWindow>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr struct {
    EDock dock;
    Qt::DockWidgetArea area;
} c_edges[] = {
    {EDock::Left, Qt::LeftDockWidgetArea},
    {EDock::Right, Qt::RightDockWidgetArea},
    {EDock::Top, Qt::TopDockWidgetArea},
    {EDock::Bottom, Qt::BottomDockWidgetArea},
};

EDock ToDock(Qt::DockWidgetArea area)
{
    const auto found = std::find_if(std::begin(c_edges), std::end(c_edges),
                                    [=](const auto& edge) { return edge.area == area; });
    return found == std::end(c_edges) ? EDock::None : found->dock;
}

Qt::DockWidgetArea ToArea(EDock dock, Qt::DockWidgetArea byDefault)
{
    const auto found = std::find_if(std::begin(c_edges), std::end(c_edges),
                                    [=](const auto& edge) { return edge.dock == dock; });
    return found == std::end(c_edges) ? byDefault : found->area;
}

Qt::Orientation GetDirection(Qt::DockWidgetArea area)
{
    const bool isBeside = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
    return isBeside ? Qt::Horizontal : Qt::Vertical;
}

} // namespace

CDockPane::CDockPane(CStr name, const CStr& title)
    : QDockWidget(ToQString(title))
    , m_name(std::move(name))
{
    setObjectName(ToQString(m_name)); // by which QMainWindow::saveState knows it
    connect(this, &QDockWidget::dockLocationChanged, this, [this](Qt::DockWidgetArea area) {
        if (area != Qt::NoDockWidgetArea)
            m_area = area;
    });
}

CDockPane::~CDockPane() = default;

void CDockPane::AddTo(QMainWindow& window, Qt::DockWidgetArea byDefault)
{
    const auto placement = GetPlacementManager().Find(m_name, GetCurrentSetUpName());
    m_area = placement ? ToArea(placement->dock, byDefault) : byDefault;
    window.addDockWidget(m_area, this);
    window.installEventFilter(this);
    if (placement)
        Restore(window, *placement);
}

void CDockPane::Restore(QMainWindow& window, const SWindowPlacement& placement)
{
    m_floating = placement;
    if (placement.dock == EDock::None) {
        setFloating(true);
        CWindowPlacer::Place(*this, placement);
    } else if (placement.dockedExtent > 0) {
        const QSize most = window.screen()->availableSize();
        const int extent = std::min(placement.dockedExtent, std::max(most.width(), most.height()));
        window.resizeDocks({this}, {extent}, GetDirection(m_area));
    }
    setVisible(!placement.isHidden);
}

bool CDockPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous() && watched == parentWidget())
        Remember();
    return QDockWidget::eventFilter(watched, event);
}

SWindowPlacement CDockPane::GetPlacement() const
{
    SWindowPlacement placement = isFloating() ? CWindowPlacer::GetPlacement(*this) : m_floating;
    placement.isHidden = isHidden();
    placement.isMaximized = false;
    placement.dock = isFloating() ? EDock::None : ToDock(m_area);
    placement.dockedExtent = GetDirection(m_area) == Qt::Horizontal ? width() : height();
    return placement;
}

void CDockPane::Remember() const
{
    GetPlacementManager().Remember(m_name, GetCurrentSetUpName(), GetPlacement());
}

} // namespace CommonUI
