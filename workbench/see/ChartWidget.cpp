#include "workbench/see/ChartWidget.h"

#include "qt/QtText.h"
#include "workbench/see/LineColors.h"
#include "workbench/see/SeeTexts.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <cmath>
#include <ranges>

namespace Workbench
{

using CommonUI::CRange;
using CommonUI::ToQString;
using CommonUI::Measurement::EChartLine;
using CommonUI::Measurement::SAxis;
using CommonUI::Measurement::SChart;
using CommonUI::Measurement::SChartAxis;
using CommonUI::Measurement::SChartLine;
using CommonUI::Measurement::SChartMark;
using CommonUI::Measurement::SCurvePoint;
using CommonUI::Measurement::SScale;
using CommonUI::Measurement::STick;

namespace
{

constexpr double c_zoomStep = 1.25;
constexpr double c_greatestZoom = 1e4;
constexpr int c_tick = 4;
constexpr int c_reach = 5;       // of a cursor, pixels
constexpr double c_keyStep = 10; // pixels

double Place(const SChartAxis& axis, double value)
{
    return axis.isLogarithmic ? std::log10(value) : value;
}

double Value(const SChartAxis& axis, double place)
{
    return axis.isLogarithmic ? std::pow(10.0, place) : place;
}

// The part of an axis around a place that stays where it is.
CRange<double> Zoomed(const SChartAxis& axis, CRange<double> seen, double share, double factor)
{
    const double least = Place(axis, axis.range.GetLower());
    const double most = Place(axis, axis.range.GetUpper());
    const double from = Place(axis, seen.GetLower());
    const double length = Place(axis, seen.GetUpper()) - from;
    const double wanted = std::max(length / factor, (most - least) / c_greatestZoom);
    if (wanted >= most - least)
        return axis.range;
    const double first = std::clamp(from + share * (length - wanted), least, std::max(least, most - wanted));
    return {Value(axis, first), Value(axis, first + wanted)};
}

CRange<double> Moved(const SChartAxis& axis, CRange<double> seen, double share)
{
    const double least = Place(axis, axis.range.GetLower());
    const double most = Place(axis, axis.range.GetUpper());
    const double from = Place(axis, seen.GetLower());
    const double length = Place(axis, seen.GetUpper()) - from;
    const double first = std::clamp(from + share * length, least, std::max(least, most - length));
    return {Value(axis, first), Value(axis, first + length)};
}

int IntervalsOf(int length, int each)
{
    return std::max(2, length / std::max(1, each));
}

int LongestOf(const SAxis& axis, const QFontMetrics& metrics)
{
    int longest = 0;
    for (const STick& tick : axis.ticks)
        longest = std::max(longest, metrics.horizontalAdvance(ToQString(tick.text)));
    return longest;
}

} // namespace

CChartWidget::CChartWidget()
{
    setAccessibleName(QText(ESeeText::Chart));
    setFocusPolicy(Qt::StrongFocus);
}

CChartWidget::~CChartWidget() = default;

QSize CChartWidget::sizeHint() const
{
    return {30 * fontMetrics().height(), 16 * fontMetrics().height()};
}

QSize CChartWidget::minimumSizeHint() const
{
    return {14 * fontMetrics().height(), 9 * fontMetrics().height()};
}

void CChartWidget::SetChart(SChart chart, bool keepsView)
{
    const bool stays = keepsView && chart.x.range == m_chart.x.range;
    const bool showsAllHeights = m_seenY == m_chart.y.range;
    m_chart = std::move(chart);
    m_read = std::min(m_read, m_chart.lines.empty() ? 0 : m_chart.lines.size() - 1);
    for (auto& cursor : m_cursors)
        if (cursor && !m_chart.x.range.Contains(*cursor))
            cursor.reset();
    if (!stays)
        m_seenX = m_chart.x.range;
    if (!stays || showsAllHeights)
        m_seenY = m_chart.y.range;
    LayOut();
    setAccessibleDescription(ToQString(m_chart.title));
    Q_EMIT CursorsChanged();
}

void CChartWidget::SetRead(std::size_t line)
{
    m_read = line;
    update();
    Q_EMIT CursorsChanged();
}

void CChartWidget::LayOut()
{
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.height();
    const SAxis marks = m_chart.y.MakeMarks(m_seenY, IntervalsOf(height(), 3 * line));
    const int left = std::max(3 * line, LongestOf(marks, metrics) + line);
    m_frame = rect().adjusted(left, 3 * line / 2, -line, -5 * line / 2);
    update();
}

SScale CChartWidget::GetScaleX() const
{
    return {.range = m_seenX,
            .from = static_cast<double>(m_frame.left()),
            .to = static_cast<double>(m_frame.right()),
            .isLogarithmic = m_chart.x.isLogarithmic};
}

SScale CChartWidget::GetScaleY() const
{
    return {.range = m_seenY,
            .from = static_cast<double>(m_frame.bottom()),
            .to = static_cast<double>(m_frame.top()),
            .isLogarithmic = m_chart.y.isLogarithmic};
}

QPointF CChartWidget::ToPoint(double x, double y) const
{
    return {GetScaleX().Map(x), GetScaleY().Map(y)};
}

double CChartWidget::ToX(double pixel) const
{
    const double share = (pixel - m_frame.left()) / std::max(1, m_frame.width() - 1);
    const double from = Place(m_chart.x, m_seenX.GetLower());
    return m_chart.x.range.Clamp(
        Value(m_chart.x, from + share * (Place(m_chart.x, m_seenX.GetUpper()) - from)));
}

void CChartWidget::ZoomAt(const QPointF& at, double factorX, double factorY)
{
    const double shareX = std::clamp((at.x() - m_frame.left()) / std::max(1, m_frame.width()), 0.0, 1.0);
    const double shareY = std::clamp((m_frame.bottom() - at.y()) / std::max(1, m_frame.height()), 0.0, 1.0);
    m_seenX = Zoomed(m_chart.x, m_seenX, shareX, factorX);
    m_seenY = Zoomed(m_chart.y, m_seenY, shareY, factorY);
    LayOut();
}

void CChartWidget::Zoom(double factorX, double factorY)
{
    ZoomAt(QRectF(m_frame).center(), factorX, factorY);
}

void CChartWidget::Pan(double right, double down)
{
    m_seenX = Moved(m_chart.x, m_seenX, -right / std::max(1, m_frame.width()));
    m_seenY = Moved(m_chart.y, m_seenY, down / std::max(1, m_frame.height()));
    LayOut();
}

void CChartWidget::Fit()
{
    m_seenX = m_chart.x.range;
    m_seenY = m_chart.y.range;
    LayOut();
}

void CChartWidget::SetCursor(std::size_t cursor, double x)
{
    m_active = cursor;
    m_cursors[cursor] = x;
    setAccessibleDescription(GetReadOut());
    update();
    Q_EMIT CursorsChanged();
}

std::optional<std::size_t> CChartWidget::FindCursor(double x) const
{
    for (std::size_t i = 0; i < m_cursors.size(); ++i)
        if (m_cursors[i] && std::abs(GetScaleX().Map(*m_cursors[i]) - x) <= c_reach)
            return i;
    return {};
}

double CChartWidget::GetReadValue(double x) const
{
    return m_read < m_chart.lines.size() ? GetValueAt(m_chart.lines[m_read], x)
                                         : CommonUI::Analysis::c_missing;
}

QString CChartWidget::GetReadOut() const
{
    const double stepX = m_chart.x.range.GetLength() * 1e-4;
    const double stepY = m_chart.y.range.GetLength() * 1e-4;
    const auto name = [](const SChartAxis& axis) { return ToQString(axis.name.IsEmpty() ? u"" : axis.name); };
    const auto pair = [&](const QString& sign, double x, double y) {
        return sign + name(m_chart.x) + QStringLiteral(" = ") + ToQString(m_chart.x.GetText(x, stepX)) +
               QStringLiteral(", ") + sign + name(m_chart.y) + QStringLiteral(" = ") +
               ToQString(m_chart.y.GetText(y, stepY));
    };
    QStringList parts;
    for (std::size_t i = 0; i < m_cursors.size(); ++i)
        if (m_cursors[i])
            parts +=
                QStringLiteral("%1:  ").arg(i + 1) + pair({}, *m_cursors[i], GetReadValue(*m_cursors[i]));
    if (m_cursors[0] && m_cursors[1])
        parts += QStringLiteral("2 − 1:  ") + pair(QStringLiteral("Δ"), *m_cursors[1] - *m_cursors[0],
                                                   GetReadValue(*m_cursors[1]) - GetReadValue(*m_cursors[0]));
    return parts.join(QLatin1Char('\n'));
}

void CChartWidget::MoveCursor(double right)
{
    const double at =
        m_cursors[m_active] ? GetScaleX().Map(*m_cursors[m_active]) : QRectF(m_frame).center().x();
    SetCursor(m_active, ToX(at + right));
}

QPixmap CChartWidget::MakePicture(double scale) const
{
    QPixmap picture(size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(palette().color(QPalette::Base));
    QPainter painter(&picture);
    painter.setFont(font());
    DrawAll(painter);
    return picture;
}

void CChartWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    LayOut();
}

void CChartWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        LayOut();
    QWidget::changeEvent(event);
}

void CChartWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (m_chart.lines.empty())
        return;
    DrawAll(painter);
    DrawCursors(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void CChartWidget::DrawAll(QPainter& painter) const
{
    DrawAxes(painter);
    painter.save();
    painter.setClipRect(m_frame);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < m_chart.lines.size(); ++i)
        if (i != m_read)
            DrawLine(painter, m_chart.lines[i]);
    if (m_read < m_chart.lines.size()) // lies above the others
        DrawLine(painter, m_chart.lines[m_read]);
    DrawMarks(painter);
    painter.restore();
    DrawNames(painter);
    painter.setPen(palette().color(QPalette::Text));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_frame);
}

// Of several curves, and of what explains one, above the frame, the first at the left.
void CChartWidget::DrawNames(QPainter& painter) const
{
    if (m_chart.lines.size() < 2)
        return;
    int right = m_frame.right();
    for (const SChartLine& line : std::ranges::reverse_view(m_chart.lines)) {
        const QString name = ToQString(line.name);
        const int width = fontMetrics().horizontalAdvance(name);
        right -= width;
        if (name.isEmpty() || right < m_frame.left() + m_frame.width() / 4)
            continue;
        painter.setPen(GetLineColor(line.color, IsDark(palette())));
        painter.drawText(right, m_frame.top() - fontMetrics().descent() - 2, name);
        right -= fontMetrics().height();
    }
}

void CChartWidget::DrawAxes(QPainter& painter) const
{
    const int line = fontMetrics().height();
    QColor grid = palette().color(QPalette::Text);
    grid.setAlpha(40);
    painter.setPen(palette().color(QPalette::Text));
    int intervals = IntervalsOf(m_frame.width(), 5 * line);
    SAxis x = m_chart.x.MakeMarks(m_seenX, intervals);
    while (intervals > 2 &&
           static_cast<int>(x.ticks.size()) * (LongestOf(x, fontMetrics()) + line) > m_frame.width())
        x = m_chart.x.MakeMarks(m_seenX, --intervals);
    const SScale scaleX = GetScaleX();
    for (const STick& tick : x.ticks) {
        const int at = qRound(scaleX.Map(tick.value));
        painter.fillRect(at, m_frame.top(), 1, m_frame.height(), grid);
        painter.drawLine(at, m_frame.bottom(), at, m_frame.bottom() + c_tick);
        painter.drawText(QRect(at - 4 * line, m_frame.bottom() + c_tick, 8 * line, line),
                         Qt::AlignHCenter | Qt::AlignTop, ToQString(tick.text));
    }
    painter.drawText(QRect(m_frame.left(), m_frame.bottom() + c_tick + line, m_frame.width(), line),
                     Qt::AlignCenter, ToQString(m_chart.x.GetName(x)));
    const SAxis y = m_chart.y.MakeMarks(m_seenY, IntervalsOf(m_frame.height(), 2 * line));
    const SScale scaleY = GetScaleY();
    for (const STick& tick : y.ticks) {
        const int at = qRound(scaleY.Map(tick.value));
        painter.fillRect(m_frame.left(), at, m_frame.width(), 1, grid);
        painter.drawLine(m_frame.left() - c_tick, at, m_frame.left(), at);
        painter.drawText(QRect(0, at - line / 2, m_frame.left() - c_tick - 2, line),
                         Qt::AlignRight | Qt::AlignVCenter, ToQString(tick.text));
    }
    painter.drawText(QRect(line / 2, 0, width() - line / 2, 3 * line / 2), Qt::AlignLeft | Qt::AlignVCenter,
                     ToQString(m_chart.y.GetName(y)));
}

void CChartWidget::DrawLine(QPainter& painter, const SChartLine& line) const
{
    const SScale x = GetScaleX();
    const SScale y = GetScaleY();
    const QColor color = GetLineColor(line.color, IsDark(palette()));
    QPainterPath path;
    bool isDrawing = false;
    for (const SCurvePoint& point : line.points) {
        if (std::isnan(point.y)) {
            isDrawing = false;
            continue;
        }
        constexpr double c_far = 1e5; // what a painter counts with
        const QPointF at(std::clamp(x.Map(point.x), -c_far, c_far),
                         std::clamp(y.Map(point.y), -c_far, c_far));
        if (isDrawing)
            path.lineTo(at);
        else
            path.moveTo(at);
        isDrawing = true;
    }
    QColor fill = color;
    fill.setAlpha(line.kind == EChartLine::Area ? 150 : 70);
    if (line.kind == EChartLine::Area && !line.points.empty()) {
        path.lineTo(x.Map(line.points.back().x), m_frame.bottom());
        path.lineTo(x.Map(line.points.front().x), m_frame.bottom());
        path.closeSubpath();
    }
    const bool isFilled = line.kind == EChartLine::Area || line.kind == EChartLine::Part;
    if (isFilled)
        painter.fillPath(path, fill);
    else
        painter.strokePath(path, QPen(color, 1.5));
}

// Names of places along x stand below each other, those of heights at the right.
void CChartWidget::DrawMarks(QPainter& painter) const
{
    const int line = fontMetrics().height();
    const QColor color = palette().color(QPalette::Text);
    int row = 0;
    for (const SChartMark& mark : m_chart.marks) {
        painter.setPen(QPen(color, 1, Qt::DashLine));
        const QString name = ToQString(mark.name);
        const int width = fontMetrics().horizontalAdvance(name);
        if (mark.isHeight) {
            const double y = GetScaleY().Map(mark.value);
            painter.drawLine(QPointF(m_frame.left(), y), QPointF(m_frame.right(), y));
            painter.setPen(color);
            painter.drawText(QPointF(m_frame.right() - width - line / 2.0, y - line / 4.0), name);
        } else {
            const double x = GetScaleX().Map(mark.value);
            painter.drawLine(QPointF(x, m_frame.top()), QPointF(x, m_frame.bottom()));
            painter.setPen(color);
            const bool isLeft = x + width + line > m_frame.right();
            painter.drawText(QPointF(isLeft ? x - width - line / 3.0 : x + line / 3.0,
                                     m_frame.bottom() - line / 3.0 - row++ * line),
                             name);
        }
    }
}

void CChartWidget::DrawCursors(QPainter& painter) const
{
    painter.save();
    painter.setClipRect(m_frame);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor text = palette().color(QPalette::Text);
    const QColor active = palette().color(QPalette::Highlight);
    for (std::size_t i = 0; i < m_cursors.size(); ++i) {
        if (!m_cursors[i])
            continue;
        const QColor color = i == m_active ? active : text;
        const double x = GetScaleX().Map(*m_cursors[i]);
        painter.setPen(QPen(color, i == m_active ? 2 : 1));
        painter.drawLine(QPointF(x, m_frame.top()), QPointF(x, m_frame.bottom()));
        painter.setPen(text);
        painter.drawText(QPointF(x + 4, m_frame.top() + fontMetrics().ascent() + 2), QString::number(i + 1));
        const double value = GetReadValue(*m_cursors[i]);
        if (std::isnan(value))
            continue;
        painter.setPen(QPen(palette().color(QPalette::Base), 1.5));
        painter.setBrush(color);
        painter.drawEllipse(QPointF(x, GetScaleY().Map(value)), 4, 4);
    }
    painter.restore();
}

void CChartWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_dragged = event->position();
    m_hasMoved = false;
    const auto cursor = FindCursor(event->position().x());
    m_isMovingCursor = cursor.has_value();
    if (cursor)
        SetCursor(*cursor, *m_cursors[*cursor]);
}

void CChartWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragged || !(event->buttons() & Qt::LeftButton))
        return;
    const QPointF moved = event->position() - *m_dragged;
    m_hasMoved = m_hasMoved || moved.manhattanLength() > 3;
    if (m_isMovingCursor) {
        SetCursor(m_active, ToX(event->position().x()));
    } else if (m_hasMoved) {
        Pan(moved.x(), moved.y());
        m_dragged = event->position();
    }
}

// A click sets the cursor that is not there yet, else the one that was worked at.
void CChartWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_dragged && !m_hasMoved && !m_isMovingCursor && m_frame.contains(event->position().toPoint())) {
        const std::size_t cursor = !m_cursors[0] ? 0 : !m_cursors[1] ? 1 : m_active;
        SetCursor(cursor, ToX(event->position().x()));
    }
    m_dragged.reset();
}

void CChartWidget::mouseDoubleClickEvent(QMouseEvent*)
{
    Fit();
}

void CChartWidget::wheelEvent(QWheelEvent* event)
{
    const double factor = std::pow(c_zoomStep, event->angleDelta().y() / 120.0);
    const bool isHeight = event->modifiers() & Qt::ControlModifier;
    ZoomAt(event->position(), isHeight ? 1 : factor, isHeight ? factor : 1);
}

void CChartWidget::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool isControl = event->modifiers() & Qt::ControlModifier;
    const double right = (key == Qt::Key_Right) - (key == Qt::Key_Left);
    const double down = (key == Qt::Key_Down) - (key == Qt::Key_Up);
    if ((right != 0 || down != 0) && event->modifiers() & Qt::ShiftModifier) {
        Pan(-3 * c_keyStep * right, -3 * c_keyStep * down);
    } else if (right != 0) {
        MoveCursor(isControl ? right : c_keyStep * right);
    } else if (key == Qt::Key_Plus || key == Qt::Key_Minus) {
        const double factor = key == Qt::Key_Plus ? c_zoomStep : 1 / c_zoomStep;
        Zoom(isControl ? 1 : factor, isControl ? factor : 1);
    } else if (key == Qt::Key_1 || key == Qt::Key_2) {
        m_active = key == Qt::Key_1 ? 0 : 1;
        MoveCursor(0);
    } else if (key == Qt::Key_Delete) {
        m_cursors = {};
        update();
        Q_EMIT CursorsChanged();
    } else if (key == Qt::Key_Home) {
        Fit();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace Workbench
