#include "qt/grid/detail/GridCellAccessible.h"

#include "qt/detail/EventGuard.h"
#include "qt/grid/detail/GridAccessible.h"
#include "qt/grid/detail/GridRects.h"
#include "qt/grid/GridWidget.h"
#include "qt/QtText.h"

namespace CommonUI
{

CGridCellAccessible::CGridCellAccessible(CGridWidget& widget, SGridCell cell)
    : m_widget(&widget)
    , m_cell(cell)
{
}

CGridPane* CGridCellAccessible::GetGrid() const
{
    CGridPane* const grid = m_widget ? m_widget->GetControl() : nullptr;
    const bool exists = grid && m_cell.row < grid->GetRowCount() && m_cell.column < grid->GetColumnCount();
    return exists ? grid : nullptr;
}

bool CGridCellAccessible::isValid() const
{
    return GetGrid() != nullptr;
}

QWindow* CGridCellAccessible::window() const
{
    return m_widget ? m_widget->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CGridCellAccessible::table() const
{
    return m_widget ? QAccessible::queryAccessibleInterface(m_widget) : nullptr;
}

QString CGridCellAccessible::text(QAccessible::Text what) const
{
    const CGridPane* const grid = GetGrid();
    if (!grid)
        return {};
    if (what == QAccessible::Name || what == QAccessible::Value)
        return ToQString(grid->Speak(m_cell).text);
    return what == QAccessible::Description ? ToQString(grid->SpeakHeader(m_cell.column)) : QString();
}

QRect CGridCellAccessible::rect() const
{
    const CGridPane* const grid = GetGrid();
    if (!grid)
        return {};
    const QWidget& viewport = *m_widget->viewport();
    const QRect cell = ToQRect(grid->GetCellRect(m_cell));
    return {viewport.mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State CGridCellAccessible::state() const
{
    QAccessible::State state;
    const CGridPane* const grid = GetGrid();
    if (!grid) {
        state.invalid = true;
        return state;
    }
    const SSpokenCell cell = grid->Speak(m_cell);
    const QRect shown = m_widget->viewport()->rect();
    state.focusable = true;
    state.selectable = true;
    state.selected = isSelected();
    state.focused = grid->HasFocus() && grid->GetSelection().GetFocus() == m_cell;
    state.disabled = !cell.enabled || !m_widget->isEnabled();
    state.readOnly = cell.readOnly;
    state.editable = !cell.readOnly;
    state.expandable = cell.hasSubRows;
    state.expanded = cell.hasSubRows && cell.expanded;
    state.collapsed = cell.hasSubRows && !cell.expanded;
    state.offscreen = !shown.intersects(ToQRect(grid->GetCellRect(m_cell)));
    return state;
}

bool CGridCellAccessible::isSelected() const
{
    const CGridPane* const grid = GetGrid();
    return grid && grid->GetSelection().Contains(m_cell);
}

void* CGridCellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QStringList CGridCellAccessible::actionNames() const
{
    return {setFocusAction(), pressAction()};
}

// Pressing does what the space bar does, or Enter where that is of no use.
void CGridCellAccessible::doAction(const QString& name)
{
    if (!GetGrid() || !m_widget->isEnabled())
        return;
    // Each step may destroy the grid and the widget, and this with it.
    const QPointer<CGridWidget> widget = m_widget;
    const SGridCell cell = m_cell;
    const bool press = name == pressAction();
    const auto grid = [&widget] { return widget ? widget->GetControl() : nullptr; };
    if (!widget->CommitEditor())
        return;
    widget->setFocus(Qt::OtherFocusReason);
    Guarded([&] {
        if (grid())
            grid()->SelectCell(cell);
        if (press && grid() && !grid()->OnKey({EGridKey::Space}) && grid())
            grid()->OnKey({EGridKey::Enter});
    });
    if (grid())
        TellGridFocus(*widget, QAccessible::NameChanged);
}

} // namespace CommonUI
