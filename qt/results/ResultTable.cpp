#include "qt/results/detail/ResultTable.h"
#include "qt/detail/EventGuard.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <limits>
#include <utility>

namespace CommonUI
{

using EPart = SGridHit::EPart;

CResultTable::CResultTable(CGridBaseOutputCtrl& table, FFillMenu fillMenu, FMakeData makeData)
    : CResultGridWidget(table)
    , m_fillMenu(std::move(fillMenu))
    , m_makeData(std::move(makeData))
{
}

CResultTable::~CResultTable() = default;

QSize CResultTable::sizeHint() const
{
    constexpr int c_rows = 4;
    const QSize hint = CResultGridWidget::sizeHint();
    const CGridPane* const pane = GetControl();
    const int bar = hint.width() > width() ? horizontalScrollBar()->sizeHint().height() : 0;
    const int room = horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff ? 0 : bar;
    return {hint.width(), std::min(hint.height(), pane->GetBodyTop() + c_rows * pane->GetRowHeight() + room +
                                                      2 * frameWidth())};
}

void CResultTable::ShowMenu(SGridCell cell, QPoint place)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Guarded([&] { m_fillMenu(*menu, cell); });
    menu->popup(place);
}

void CResultTable::contextMenuEvent(QContextMenuEvent* event)
{
    CResultGridPane& pane = GetPane();
    if (event->reason() != QContextMenuEvent::Mouse) {
        ShowMenu(pane.GetSelection().GetFocus(), GetMenuPlace());
        return;
    }
    SGridHit hit = pane.HitTest({event->pos().x(), event->pos().y()});
    if (hit.part == EPart::Cell && !pane.GetSelection().Contains(hit.cell))
        Guarded([&] { pane.SelectCell(hit.cell); });
    else if (hit.part != EPart::Cell)
        hit.cell.row = std::numeric_limits<std::size_t>::max();
    ShowMenu(hit.cell, event->globalPos());
}

void CResultTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        ShowMenu(GetPane().GetSelection().GetFocus(), GetMenuPlace());
    else
        CResultGridWidget::keyPressEvent(event);
}

// One cell alone is dragged with Control held down: without, dragging it selects more.
bool CResultTable::CanDrag(const QMouseEvent& event)
{
    const QPoint point = event.position().toPoint();
    const SGridHit hit = GetPane().HitTest({point.x(), point.y()});
    const CGridSelection& selection = GetPane().GetSelection();
    if (event.button() != Qt::LeftButton || hit.part != EPart::Cell || !selection.Contains(hit.cell))
        return false;
    const SGridRange range = selection.GetRange();
    const bool isOne = range.firstRow == range.lastRow && range.firstColumn == range.lastColumn;
    const auto modifiers = event.modifiers();
    return modifiers == Qt::ControlModifier || (!isOne && modifiers == Qt::NoModifier);
}

void CResultTable::mousePressEvent(QMouseEvent* event)
{
    m_pressed.reset();
    if (CanDrag(*event))
        m_pressed = event->position().toPoint();
    else
        CResultGridWidget::mousePressEvent(event);
}

void CResultTable::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed) {
        CResultGridWidget::mouseMoveEvent(event);
        return;
    }
    const QPoint way = event->position().toPoint() - *m_pressed;
    if (way.manhattanLength() < QApplication::startDragDistance())
        return;
    m_pressed.reset();
    QMimeData* const dragged = m_makeData();
    if (!dragged)
        return;
    auto* const drag = new QDrag(this); // Qt deletes it
    drag->setMimeData(dragged);
    drag->exec(Qt::CopyAction);
}

// A press that was no drag selects the cell after all.
void CResultTable::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_pressed) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(*m_pressed), event->globalPosition(),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        m_pressed.reset();
        CResultGridWidget::mousePressEvent(&press);
    }
    CResultGridWidget::mouseReleaseEvent(event);
}

} // namespace CommonUI
