#include "workbench/analyze/GrainOverlay.h"

#include "workbench/MapWidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPalette>

#include <cmath>
#include <utility>

namespace Workbench
{

using SurfaceView::CMapPlace;
using SurfaceView::SMapPoint;

namespace
{

constexpr double c_clickReach = 4; // pixels

std::vector<double> DescribePlace(const CMapPlace& place, int scale)
{
    const CommonUI::SRect shown = place.GetShown();
    const SMapPoint from = place.ToPoint({.x = shown.left + 0.0, .y = shown.top + 0.0});
    const SMapPoint to = place.ToPoint({.x = shown.right + 0.0, .y = shown.bottom + 0.0});
    return {
        shown.left + 0.0, shown.top + 0.0, shown.right + 0.0, shown.bottom + 0.0, from.x, from.y, to.x, to.y,
        scale + 0.0};
}

} // namespace

SurfaceView::SGrainColors GetGrainColors(const QPalette& palette)
{
    QColor chosen = palette.color(QPalette::Highlight);
    chosen.setAlpha(190);
    return {.inside = 0xFF000000U, // seen on maps of any colour
            .outside = 0xFFFFFFFFU,
            .dense = 0x60000000U,
            .chosen = chosen.rgba()};
}

CGrainOverlay::CGrainOverlay(CMapWidget& map)
    : QObject(&map)
    , m_map(map)
{
    m_map.AddOverlay(*this);
}

CGrainOverlay::~CGrainOverlay() = default;

void CGrainOverlay::SetGrains(std::shared_ptr<const CommonUI::Measurement::SFoundGrains> grains)
{
    m_grains = std::move(grains);
    m_before.reset();
    Choose(0);
}

void CGrainOverlay::Choose(std::uint32_t grain)
{
    m_chosen = grain;
    m_picture = {};
    m_map.update();
    Q_EMIT Changed();
}

void CGrainOverlay::ShowGrain(std::uint32_t grain)
{
    Choose(grain);
    if (!m_grains)
        return;
    if (const auto middle = SurfaceView::FindMiddle(m_grains->map, m_map.GetPlace(), grain))
        m_map.Center(*middle);
}

void CGrainOverlay::Pick(const std::optional<SMapPoint>& place)
{
    if (!m_grains)
        return;
    m_before = m_chosen;
    Choose(place ? SurfaceView::FindGrain(m_grains->map, m_map.GetPlace(), *place) : 0);
    Q_EMIT Picked(m_chosen);
}

void CGrainOverlay::TakeBack()
{
    if (!m_before)
        return;
    Choose(*std::exchange(m_before, std::nullopt));
    Q_EMIT Picked(m_chosen);
}

void CGrainOverlay::Draw(QPainter& painter, const QWidget& map, const CMapPlace& place)
{
    if (!m_grains || m_grains->map.labels.empty())
        return;
    const int scale = static_cast<int>(std::ceil(map.devicePixelRatioF()));
    auto shown = DescribePlace(place, scale);
    const CommonUI::SRect rect = place.GetShown();
    const QSize size = QSize(rect.GetWidth(), rect.GetHeight()) * scale;
    if (size.isEmpty())
        return;
    if (m_picture.isNull() || shown != m_drawn) {
        const std::vector<std::uint32_t> pixels =
            SurfaceView::DrawGrains(m_grains->map, GetGrainColors(map.palette()), m_chosen, place, scale);
        m_picture =
            QImage(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                   static_cast<qsizetype>(sizeof(std::uint32_t)) * size.width(), QImage::Format_ARGB32)
                .copy();
        m_drawn = std::move(shown);
    }
    painter.drawImage(QRect(rect.left, rect.top, rect.GetWidth(), rect.GetHeight()), m_picture);
}

// The map has the input too: dragging moves it.
bool CGrainOverlay::Handle(QEvent& event, const CMapPlace& place)
{
    if (!m_grains)
        return false;
    switch (event.type()) {
    case QEvent::MouseButtonPress: {
        const auto& press = static_cast<QMouseEvent&>(event);
        m_pressed = press.button() == Qt::LeftButton ? std::optional(press.position()) : std::nullopt;
        m_before.reset();
        break;
    }
    case QEvent::MouseMove:
        if (m_pressed &&
            (static_cast<QMouseEvent&>(event).position() - *m_pressed).manhattanLength() > c_clickReach)
            m_pressed.reset(); // wherever it ends
        break;
    case QEvent::MouseButtonRelease:
        if (std::exchange(m_pressed, std::nullopt)) {
            const QPointF at = static_cast<QMouseEvent&>(event).position();
            Pick(place.ToPoint({.x = at.x(), .y = at.y()}));
        }
        break;
    case QEvent::MouseButtonDblClick:
        TakeBack();
        break;
    default:
        break;
    }
    return false;
}

} // namespace Workbench
