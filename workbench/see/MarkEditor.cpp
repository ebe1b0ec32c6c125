#include "workbench/see/MarkEditor.h"

#include "qt/QtText.h"
#include "workbench/MapWidget.h"
#include "workbench/see/LineColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace Workbench
{

using CommonUI::Analysis::SPlace;
using CommonUI::Measurement::EMark;
using CommonUI::Measurement::SLengthFormat;
using CommonUI::Measurement::SMark;
using SurfaceView::CMapPlace;

namespace
{

constexpr double c_reach = 8; // pixels
constexpr double c_keyStep = 10;

SPlace ToPlace(const CMapPlace& place, const QPointF& at)
{
    const SurfaceView::SMapPoint point = place.ToPoint({.x = at.x(), .y = at.y()});
    return {.x = point.x, .y = point.y};
}

QPointF ToPoint(const CMapPlace& place, const SPlace& at)
{
    const SurfaceView::SPixel pixel = place.ToPixel({.x = at.x, .y = at.y});
    return {pixel.x, pixel.y};
}

void DrawLabel(QPainter& painter, const QWidget& map, const QPointF& at, const QString& text)
{
    const QFontMetrics metrics = map.fontMetrics();
    const int gap = metrics.height() / 4;
    QRect room(0, 0, metrics.horizontalAdvance(text) + 2 * gap, metrics.height() + gap);
    const QRect shown = painter.clipBoundingRect().toAlignedRect();
    room.moveTopLeft(at.toPoint() + QPoint(2 * gap, 2 * gap));
    room.moveLeft(std::max(shown.left(), std::min(room.left(), shown.right() - room.width())));
    room.moveTop(std::max(shown.top(), std::min(room.top(), shown.bottom() - room.height())));
    QColor ground = map.palette().color(QPalette::Base);
    ground.setAlpha(215);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(room, gap, gap);
    painter.setPen(map.palette().color(QPalette::Text));
    painter.drawText(room, Qt::AlignCenter, text);
}

void DrawDot(QPainter& painter, const QPointF& at, const QColor& color, double radius)
{
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(color);
    painter.drawEllipse(at, radius, radius);
}

} // namespace

CMarkEditor::CMarkEditor(CMapWidget& map, std::shared_ptr<const SurfaceView::SViewedSurface> surface)
    : QObject(&map)
    , m_map(map)
    , m_surface(std::move(surface))
    , m_marks(m_surface->GetSurface())
{
    SetSurface(m_surface);
    m_map.AddOverlay(*this);
}

CMarkEditor::~CMarkEditor() = default;

void CMarkEditor::SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
{
    m_surface = std::move(surface);
    m_marks.SetSurface(GetSurface());
    m_width = CommonUI::Measurement::GetWidthFormat(GetSurface());
    m_height = SLengthFormat::Of(m_surface->heights ? m_surface->heights->GetLength() : 0);
    Tell();
}

void CMarkEditor::SetTool(EMapTool tool)
{
    m_tool = tool;
    StopDragging();
}

EMark CMarkEditor::GetKind() const
{
    return m_tool == EMapTool::Angle      ? EMark::Angle
           : m_tool == EMapTool::Distance ? EMark::Distance
                                          : EMark::Profile;
}

std::vector<std::vector<CommonUI::CStr>> CMarkEditor::MakeTable() const
{
    return CommonUI::Measurement::MakeMarkTable(GetSurface(), GetMarks(), m_width, m_height);
}

void CMarkEditor::Choose(std::optional<std::size_t> mark)
{
    if (mark && m_chosen && m_chosen->mark == *mark)
        return;
    m_chosen = mark ? std::optional(SChosen{*mark, {}}) : std::nullopt;
    StopDragging();
    Tell();
}

void CMarkEditor::RemoveChosen()
{
    if (!m_chosen)
        return;
    m_marks.Remove(m_chosen->mark);
    m_chosen.reset();
    StopDragging();
    Tell();
}

// What has been drawn so far stays as it is.
void CMarkEditor::StopDragging()
{
    m_isDragging = false;
    m_isNew = false;
}

void CMarkEditor::SetSpots(std::vector<SPlace> spots)
{
    m_spots = std::move(spots);
    m_map.update();
}

void CMarkEditor::Tell()
{
    m_map.update();
    QString text;
    if (m_chosen)
        text = CommonUI::ToQString(
            CommonUI::Measurement::DescribeMark(GetSurface(), GetMarks()[m_chosen->mark], m_width, m_height));
    m_map.setAccessibleDescription(text);
    if (!text.isEmpty())
        Q_EMIT Described(text);
    Q_EMIT Changed();
}

bool CMarkEditor::Handle(QEvent& event, const CMapPlace& place)
{
    if (!m_surface->heights)
        return false;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        return Press(static_cast<QMouseEvent&>(event), place);
    case QEvent::MouseButtonDblClick:
        return m_tool != EMapTool::Move || m_chosen;
    case QEvent::MouseMove:
        return Drag(static_cast<QMouseEvent&>(event), place);
    case QEvent::MouseButtonRelease:
        return Release();
    case QEvent::KeyPress:
        return HandleKey(static_cast<QKeyEvent&>(event), place);
    default:
        return false;
    }
}

void CMarkEditor::Take(const SChosen& chosen)
{
    m_chosen = chosen;
    m_isDragging = true;
}

bool CMarkEditor::Press(const QMouseEvent& event, const CMapPlace& place)
{
    if (event.button() != Qt::LeftButton)
        return false;
    if (m_isDragging) { // the third place of an angle
        MoveTo(ToPlace(place, event.position()));
        StopDragging();
        return true;
    }
    m_last = ToPlace(place, event.position());
    const SPlace next = ToPlace(place, event.position() + QPointF(c_reach, c_reach));
    const auto hit = m_marks.Find(m_last, next.x - m_last.x, m_last.y - next.y);
    if (hit) {
        Take(*hit);
    } else if (m_tool != EMapTool::Move) {
        Take({m_marks.Add(GetKind(), m_last), 1});
        m_isNew = true;
    } else {
        m_chosen.reset();
    }
    Tell();
    return m_isDragging;
}

bool CMarkEditor::Drag(const QMouseEvent& event, const CMapPlace& place)
{
    if (!m_isDragging)
        return false;
    MoveTo(ToPlace(place, event.position()));
    return true;
}

void CMarkEditor::MoveTo(const SPlace& to)
{
    if (m_chosen->point)
        m_marks.MovePoint(m_chosen->mark, *m_chosen->point, to);
    else
        m_marks.MoveBy(m_chosen->mark, to.x - m_last.x, to.y - m_last.y);
    // The third place of an angle follows until it is drawn.
    if (m_isNew && m_chosen->point == 1 && GetMarks()[m_chosen->mark].kind == EMark::Angle)
        m_marks.MovePoint(m_chosen->mark, 2, to);
    m_last = to;
    Tell();
}

bool CMarkEditor::Release()
{
    if (!m_isDragging)
        return false;
    const SMark& mark = GetMarks()[m_chosen->mark];
    const bool isAngle = mark.kind == EMark::Angle;
    if (m_isNew && mark.points[0] == mark.points[1]) { // a click draws nothing
        m_isNew = false;
        RemoveChosen();
    } else if (m_isNew && isAngle && m_chosen->point == 1) {
        m_chosen->point = 2;
    } else if (!m_isNew || !isAngle) {
        StopDragging();
    }
    return true;
}

bool CMarkEditor::HandleKey(const QKeyEvent& event, const CMapPlace& place)
{
    const int key = event.key();
    const double right = (key == Qt::Key_Right) - (key == Qt::Key_Left);
    const double down = (key == Qt::Key_Down) - (key == Qt::Key_Up);
    const bool isDrawn = (key == Qt::Key_Return || key == Qt::Key_Enter) && m_tool != EMapTool::Move;
    if (isDrawn) {
        DrawByKeys(place);
        return true;
    }
    if (!m_chosen || event.modifiers() & Qt::ShiftModifier)
        return false;
    StopDragging();
    const double step = event.modifiers() & Qt::ControlModifier ? 1 : c_keyStep;
    if (right != 0 || down != 0)
        MoveByKeys(step * right, step * down, place);
    else if (key == Qt::Key_Space)
        ChooseNextPoint();
    else if (key == Qt::Key_Delete || key == Qt::Key_Backspace)
        RemoveChosen();
    else if (key == Qt::Key_Escape)
        Choose({});
    else
        return false;
    return true;
}

void CMarkEditor::MoveByKeys(double right, double down, const CMapPlace& place)
{
    const SMark& mark = GetMarks()[m_chosen->mark];
    m_last = mark.points[m_chosen->point.value_or(0)];
    MoveTo(ToPlace(place, ToPoint(place, m_last) + QPointF(right, down)));
}

// In the middle of what is shown, the place to be moved first chosen.
void CMarkEditor::DrawByKeys(const CMapPlace& place)
{
    StopDragging();
    const CommonUI::SRect shown = place.GetShown();
    const QPointF middle((shown.left + shown.right) / 2.0, (shown.top + shown.bottom) / 2.0);
    const double side = std::min(shown.GetWidth(), shown.GetHeight()) / 4.0;
    const std::size_t mark = m_marks.Add(GetKind(), ToPlace(place, middle - QPointF(side, 0)));
    m_marks.MovePoint(mark, 1, ToPlace(place, middle + QPointF(side, 0)));
    if (GetMarks()[mark].kind == EMark::Angle)
        m_marks.MovePoint(mark, 2, ToPlace(place, middle - QPointF(0, side)));
    m_chosen = SChosen{mark, 1};
    Tell();
}

// From the last place to all of the mark, then to the first place.
void CMarkEditor::ChooseNextPoint()
{
    const std::size_t points = GetMarks()[m_chosen->mark].points.size();
    const std::size_t next = m_chosen->point ? *m_chosen->point + 1 : 0;
    m_chosen->point = next < points ? std::optional(next) : std::nullopt;
    Tell();
}

void CMarkEditor::Draw(QPainter& painter, const QWidget& map, const CMapPlace& place)
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < GetMarks().size(); ++i)
        DrawMark(painter, map, place, i);
    for (const SPlace& spot : m_spots)
        DrawDot(painter, ToPoint(place, spot), Qt::black, 3.5);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void CMarkEditor::DrawMark(QPainter& painter, const QWidget& map, const CMapPlace& place,
                           std::size_t index) const
{
    const SMark& mark = GetMarks()[index];
    const bool isChosen = m_chosen && m_chosen->mark == index;
    // Profiles have the colours of their chart; the others are told apart by their labels.
    const QColor color =
        mark.kind == EMark::Profile ? GetLineColor(mark.number - 1, false) : QColor(Qt::black);
    QPolygonF line;
    for (const SPlace& point : mark.points)
        line.append(ToPoint(place, point));
    painter.setBrush(Qt::NoBrush);
    for (const auto& [pen, width] : {std::pair(QColor(Qt::white), isChosen ? 6 : 4), {color, 2}}) {
        painter.setPen(QPen(pen, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(line);
    }
    for (int i = 0; i < line.size(); ++i) {
        const bool isAll = isChosen && !m_chosen->point;
        const bool isIt = isChosen && m_chosen->point == static_cast<std::size_t>(i);
        DrawDot(painter, line[i], isIt || isAll ? map.palette().color(QPalette::Highlight) : color,
                isIt ? 6 : 4);
    }
    const QString text =
        CommonUI::ToQString(CommonUI::Measurement::DescribeMark(GetSurface(), mark, m_width, m_height));
    DrawLabel(painter, map, line.back(), text);
}

} // namespace Workbench
