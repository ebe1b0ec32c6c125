#include "qt/framework/WindowPlacer.h"

#include "dialogs/placement/PlacementManager.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

// The frame of a window is known while it is shown; before that it will be like that of the last one.
QSize GetFrame(const QWidget& window)
{
    static QSize s_last(0, 0);
    const QSize frame = window.frameGeometry().size() - window.size();
    if (!frame.isNull())
        s_last = frame;
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return s_last.isNull() ? QSize(0, title) : s_last;
}

QRect GetNormalGeometry(const QWidget& window)
{
    const bool isNormal = !(window.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized));
    const QRect normal = window.normalGeometry();
    return isNormal || normal.isEmpty() ? window.geometry() : normal;
}

} // namespace

CWindowPlacer::CWindowPlacer(QWidget& window, CStr name)
    : QObject(&window)
    , m_window(window)
    , m_name(std::move(name))
{
    window.installEventFilter(this);
    // Qt moves the window itself, but not always to where all of it can be seen.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &CWindowPlacer::BringIntoView,
            Qt::QueuedConnection);
}

CWindowPlacer::~CWindowPlacer() = default;

bool CWindowPlacer::eventFilter(QObject* watched, QEvent* event)
{
    // A modal dialog that is not to be seen yet is shown to Qt alone.
    const bool isSeen = !event->spontaneous() && !m_window.testAttribute(Qt::WA_DontShowOnScreen);
    if (isSeen && event->type() == QEvent::Show)
        Restore();
    else if (isSeen && event->type() == QEvent::Hide)
        Remember();
    return QObject::eventFilter(watched, event);
}

bool CWindowPlacer::Restore()
{
    const auto placement = GetPlacementManager().Find(m_name, GetCurrentSetUpName());
    if (placement)
        Place(m_window, *placement);
    return placement.has_value();
}

void CWindowPlacer::Remember() const
{
    GetPlacementManager().Remember(m_name, GetCurrentSetUpName(), GetPlacement(m_window));
}

void CWindowPlacer::BringIntoView()
{
    if (m_window.isVisible() && !m_window.isMaximized())
        Place(m_window, GetPlacement(m_window));
}

SWindowPlacement CWindowPlacer::GetPlacement(const QWidget& window)
{
    const QRect normal = GetNormalGeometry(window);
    const QPoint corner = normal.topLeft() - (window.geometry().topLeft() - window.pos());
    return {.position = {corner.x(), corner.y()},
            .size = {normal.width(), normal.height()},
            .isMaximized = window.isMaximized()};
}

void CWindowPlacer::Place(QWidget& window, const SWindowPlacement& placement)
{
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    SWindowPlacement wanted = placement;
    wanted.size = {std::clamp(wanted.size.cx, std::max(1, least.width()), window.maximumWidth()),
                   std::clamp(wanted.size.cy, std::max(1, least.height()), window.maximumHeight())};
    const QSize frame = GetFrame(window);
    const SWindowPlacement fitted =
        FitToScreens(wanted, {frame.width(), frame.height()}, GetScreenService().GetScreens());
    window.resize(fitted.size.cx, fitted.size.cy);
    window.move(fitted.position.x, fitted.position.y);
    window.setWindowState(window.windowState().setFlag(Qt::WindowMaximized, fitted.isMaximized));
}

} // namespace CommonUI
