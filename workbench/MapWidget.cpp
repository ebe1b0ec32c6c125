#include "workbench/MapWidget.h"

#include "measurement/charts/Axis.h"
#include "qt/QtText.h"
#include "view/MapPicture.h"
#include "workbench/Texts.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <cmath>

namespace Workbench
{

using CommonUI::CRange;
using CommonUI::ToQString;
using CommonUI::Measurement::MakeAxis;
using CommonUI::Measurement::SAxis;
using CommonUI::Measurement::STick;
using SurfaceView::SMapPoint;
using SurfaceView::SPixel;

namespace
{

constexpr double c_zoomStep = 1.25;
constexpr int c_cursorStep = 10; // pixels
constexpr int c_tick = 4;
constexpr std::size_t c_colorCount = 1024;

SPixel ToPixel(const QPointF& point)
{
    return {.x = point.x(), .y = point.y()};
}

QRect ToQRect(const CommonUI::SRect& rect)
{
    return {rect.left, rect.top, rect.GetWidth(), rect.GetHeight()};
}

int LongestOf(const SAxis& axis, const QFontMetrics& metrics)
{
    int longest = 0;
    for (const STick& tick : axis.ticks)
        longest = std::max(longest, metrics.horizontalAdvance(ToQString(tick.text)));
    return longest;
}

int IntervalsOf(int length, int each)
{
    return std::max(2, length / std::max(1, each));
}

} // namespace

CMapWidget::CMapWidget(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
    : m_surface(std::move(surface))
    , m_place(m_surface->GetSurface())
{
    setAccessibleName(QText(EText::Map));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    SetColors({});
}

CMapWidget::~CMapWidget() = default;

QSize CMapWidget::sizeHint() const
{
    return {40 * fontMetrics().height(), 30 * fontMetrics().height()};
}

QSize CMapWidget::minimumSizeHint() const
{
    return {12 * fontMetrics().height(), 12 * fontMetrics().height()};
}

void CMapWidget::SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface, bool isPreview)
{
    m_surface = std::move(surface);
    const SurfaceView::CMapPlace whole(m_surface->GetSurface());
    const auto isOther = [](double one, double other) {
        return std::abs(one - other) > 1e-9 * std::abs(one);
    };
    const SMapPoint& upper = m_place.GetUpper();
    if (!isPreview && (isOther(upper.x, whole.GetUpper().x) || isOther(upper.y, whole.GetUpper().y)))
        m_place = whole;
    LayOut();
    update();
}

void CMapWidget::SetColors(const CommonUI::SColorScale& colors)
{
    m_colors = colors;
    m_table = colors.MakeTable(c_colorCount);
    Change();
}

void CMapWidget::Zoom(double factor)
{
    m_place.Zoom(ToPixel(QRectF(m_room).center()), factor);
    Change();
}

void CMapWidget::Fit()
{
    m_place.Fit();
    Change();
}

void CMapWidget::Center(const SMapPoint& point)
{
    const SPixel at = m_place.ToPixel(point);
    const QPointF middle = QRectF(m_room).center();
    m_place.Pan(middle.x() - at.x, middle.y() - at.y);
    Change();
}

void CMapWidget::AddOverlay(CMapOverlay& overlay)
{
    m_overlays.push_back(&overlay);
    update();
}

// What was added last lies above the others.
bool CMapWidget::IsHandled(QEvent& event)
{
    return std::any_of(m_overlays.rbegin(), m_overlays.rend(),
                       [&](CMapOverlay* overlay) { return overlay->Handle(event, m_place); });
}

void CMapWidget::DrawOverlays(QPainter& painter) const
{
    painter.save();
    painter.setClipRect(ToQRect(m_place.GetShown()));
    for (CMapOverlay* const overlay : m_overlays)
        overlay->Draw(painter, *this, m_place);
    painter.restore();
}

void CMapWidget::Change()
{
    m_picture = {};
    update();
}

QString CMapWidget::GetHeightsLabel() const
{
    return QStringLiteral("z / ") + ToQString(MakeAxis(*m_surface->heights, 5).unit);
}

// Room for the marks' texts beside the map, about the same for whatever part of it is shown.
void CMapWidget::LayOut()
{
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.height();
    const auto& upper = m_place.GetUpper();
    const SAxis y = MakeAxis({0, upper.y}, 50);
    const int left = LongestOf(y, metrics) + line;
    int right = line;
    if (m_surface->heights) {
        const int marks = LongestOf(MakeAxis(*m_surface->heights, 20), metrics) + 2 * line;
        right = std::max(marks, metrics.horizontalAdvance(GetHeightsLabel())) + 2 * line;
    }
    m_room = rect().adjusted(left, 2 * line, -right, -3 * line);
    m_legend = {m_room.right() + line, m_room.top(), line, m_room.height()};
    m_place.SetRoom(
        {m_room.left(), m_room.top(), m_room.left() + m_room.width(), m_room.top() + m_room.height()});
    const CommonUI::SRect shown = m_place.GetShown();
    m_legend.moveLeft(shown.right + line);
    m_picture = {};
}

void CMapWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    LayOut();
}

void CMapWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        LayOut();
    QWidget::changeEvent(event);
}

void CMapWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    if (!m_surface->heights) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, QText(EText::NothingToShow));
        return;
    }
    DrawPicture(painter);
    DrawAxes(painter);
    DrawLegend(painter);
    DrawOverlays(painter);
    DrawCursor(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void CMapWidget::DrawPicture(QPainter& painter)
{
    const QRect shown = ToQRect(m_place.GetShown());
    if (m_picture.isNull()) {
        const int scale = static_cast<int>(std::ceil(devicePixelRatioF()));
        const std::vector<std::uint32_t> pixels = SurfaceView::DrawMap(
            m_surface->GetSurface(),
            {.table = m_table, .missing = m_colors.missing, .heights = *m_surface->heights}, m_place, scale);
        const QSize size = shown.size() * scale;
        m_picture =
            QImage(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                   static_cast<qsizetype>(sizeof(std::uint32_t)) * size.width(), QImage::Format_ARGB32)
                .copy();
    }
    painter.fillRect(shown, QBrush(palette().color(QPalette::PlaceholderText), Qt::BDiagPattern));
    painter.drawImage(shown, m_picture);
    painter.drawRect(shown.adjusted(0, 0, -1, -1));
}

void CMapWidget::DrawAxes(QPainter& painter) const
{
    const QRect shown = ToQRect(m_place.GetShown());
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.height();
    const SMapPoint from = m_place.ToPoint({.x = shown.left() + 0.0, .y = shown.bottom() + 1.0});
    const SMapPoint to = m_place.ToPoint({.x = shown.right() + 1.0, .y = shown.top() + 0.0});
    const QColor grid(128, 128, 128, 110); // seen on light and dark colours
    const SAxis x = MakeAxis({from.x, to.x}, IntervalsOf(shown.width(), 6 * line));
    for (const STick& tick : x.ticks) {
        const int at = qRound(m_place.ToPixel({.x = tick.value, .y = 0}).x);
        painter.fillRect(at, shown.top(), 1, shown.height(), grid);
        painter.drawLine(at, shown.bottom() + 1, at, shown.bottom() + c_tick);
        const QRect place(at - 3 * line, shown.bottom() + c_tick + 1, 6 * line, line);
        painter.drawText(place, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, ToQString(tick.text));
    }
    painter.drawText(QRect(shown.left(), shown.bottom() + c_tick + line, shown.width(), line),
                     Qt::AlignHCenter | Qt::TextDontClip, QStringLiteral("x / ") + ToQString(x.unit));
    const SAxis y = MakeAxis({from.y, to.y}, IntervalsOf(shown.height(), 3 * line));
    for (const STick& tick : y.ticks) {
        const int at = qRound(m_place.ToPixel({.x = 0, .y = tick.value}).y);
        painter.fillRect(shown.left(), at, shown.width(), 1, grid);
        painter.drawLine(shown.left() - c_tick, at, shown.left() - 1, at);
        const QRect place(0, at - line / 2, shown.left() - c_tick - 3, line);
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, ToQString(tick.text));
    }
    const QString name = QStringLiteral("y / ") + ToQString(y.unit);
    painter.drawText(std::max(line / 2, shown.left() - metrics.horizontalAdvance(name)),
                     shown.top() - line * 2 / 3, name);
}

void CMapWidget::DrawLegend(QPainter& painter) const
{
    const QRect shown = ToQRect(m_place.GetShown());
    const int line = fontMetrics().height();
    const QRect bar(shown.right() + line, shown.top(), line, std::max(shown.height(), 4 * line));
    QLinearGradient ramp(bar.bottomLeft(), bar.topLeft());
    constexpr int c_stops = 64;
    for (int i = 0; i <= c_stops; ++i) {
        const double share = static_cast<double>(i) / c_stops;
        const CommonUI::SColor color = m_table[static_cast<std::size_t>(share * (c_colorCount - 1))];
        ramp.setColorAt(share, QColor(color.red, color.green, color.blue));
    }
    painter.fillRect(bar, ramp);
    painter.drawRect(bar.adjusted(0, 0, -1, -1));
    const CRange<double> heights = *m_surface->heights;
    for (const STick& tick : MakeAxis(heights, IntervalsOf(bar.height(), 3 * line)).ticks) {
        const double share = (tick.value - heights.GetLower()) / heights.GetLength();
        const int at = bar.bottom() - qRound(share * (bar.height() - 1));
        painter.drawLine(bar.right() + 1, at, bar.right() + c_tick, at);
        painter.drawText(QRect(bar.right() + c_tick + 3, at - line / 2, width(), line),
                         Qt::AlignLeft | Qt::AlignVCenter, ToQString(tick.text));
    }
    painter.drawText(bar.left(), bar.top() - line * 2 / 3, GetHeightsLabel());
}

void CMapWidget::DrawCursor(QPainter& painter) const
{
    const QRect shown = ToQRect(m_place.GetShown());
    if (!m_cursor || !hasFocus())
        return;
    const SPixel at = m_place.ToPixel(*m_cursor);
    const QPoint place(qRound(at.x), qRound(at.y));
    painter.setClipRect(shown);
    for (const auto& [color, width] : {std::pair(Qt::white, 3), std::pair(Qt::black, 1)}) {
        painter.setPen(QPen(color, width));
        painter.drawLine(place.x(), shown.top(), place.x(), shown.bottom());
        painter.drawLine(shown.left(), place.y(), shown.right(), place.y());
    }
    painter.setClipping(false);
}

void CMapWidget::Read(const std::optional<SMapPoint>& point)
{
    const bool isThere = point && m_surface->heights;
    Q_EMIT PointRead(
        isThere ? ToQString(SurfaceView::DescribePoint(m_surface->GetSurface(), *m_surface->heights, *point))
                : QString());
}

void CMapWidget::MoveCursor(int right, int down)
{
    const QRect shown = ToQRect(m_place.GetShown());
    const SPixel at = m_cursor ? m_place.ToPixel(*m_cursor) : ToPixel(QRectF(shown).center());
    m_cursor = m_place.ToPoint({.x = std::clamp(at.x + right, shown.left() + 0.0, shown.right() + 0.5),
                                .y = std::clamp(at.y + down, shown.top() + 0.0, shown.bottom() + 0.5)});
    Read(m_cursor);
    update();
}

void CMapWidget::mousePressEvent(QMouseEvent* event)
{
    m_dragged = event->position().toPoint();
    m_isPanning = !IsHandled(*event);
}

void CMapWidget::mouseReleaseEvent(QMouseEvent* event)
{
    IsHandled(*event);
    m_isPanning = false;
}

void CMapWidget::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (IsHandled(*event))
        return;
    if (m_isPanning && event->buttons() & Qt::LeftButton) {
        const QPoint moved = at - m_dragged;
        m_dragged = at;
        m_place.Pan(moved.x(), moved.y());
        Change();
    }
    m_cursor.reset();
    const bool isOverMap = ToQRect(m_place.GetShown()).contains(at);
    Read(isOverMap ? std::optional(m_place.ToPoint({.x = at.x() + 0.5, .y = at.y() + 0.5})) : std::nullopt);
}

void CMapWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!IsHandled(*event))
        Fit();
}

void CMapWidget::leaveEvent(QEvent*)
{
    Read(m_cursor);
}

void CMapWidget::wheelEvent(QWheelEvent* event)
{
    m_place.Zoom(ToPixel(event->position()), std::pow(c_zoomStep, event->angleDelta().y() / 120.0));
    Change();
}

void CMapWidget::keyPressEvent(QKeyEvent* event)
{
    if (IsHandled(*event))
        return;
    const QPoint arrows = event->key() == Qt::Key_Left    ? QPoint(-1, 0)
                          : event->key() == Qt::Key_Right ? QPoint(1, 0)
                          : event->key() == Qt::Key_Up    ? QPoint(0, -1)
                          : event->key() == Qt::Key_Down  ? QPoint(0, 1)
                                                          : QPoint();
    if (!arrows.isNull() && event->modifiers() & Qt::ShiftModifier) {
        m_place.Pan(-arrows.x() * 3 * c_cursorStep, -arrows.y() * 3 * c_cursorStep);
        Change();
    } else if (!arrows.isNull()) {
        MoveCursor(arrows.x() * c_cursorStep, arrows.y() * c_cursorStep);
    } else if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Minus) {
        Zoom(event->key() == Qt::Key_Plus ? c_zoomStep : 1 / c_zoomStep);
    } else if (event->key() == Qt::Key_Home) {
        Fit();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace Workbench
