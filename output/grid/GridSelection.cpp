#include "output/grid/GridSelection.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

std::size_t Before(std::size_t place, std::size_t steps)
{
    return place - std::min(place, steps);
}

} // namespace

void CGridSelection::SetSize(std::size_t rows, std::size_t columns) noexcept
{
    m_rows = rows;
    m_columns = columns;
    if (!HasCells()) {
        m_kind = EKind::None;
        m_anchor = m_focus = {};
        return;
    }
    for (SGridCell* cell : {&m_anchor, &m_focus})
        *cell = {std::min(cell->row, rows - 1), std::min(cell->column, columns - 1)};
}

SGridRange CGridSelection::GetRange() const noexcept
{
    const auto [top, bottom] = std::minmax(m_anchor.row, m_focus.row);
    const auto [left, right] = std::minmax(m_anchor.column, m_focus.column);
    SGridRange range{top, bottom, left, right};
    if (m_kind == EKind::All || m_kind == EKind::Columns) {
        range.firstRow = 0;
        range.lastRow = Before(m_rows, 1);
    }
    if (m_kind == EKind::All || m_kind == EKind::Rows || m_wholeRows) {
        range.firstColumn = 0;
        range.lastColumn = Before(m_columns, 1);
    }
    return range;
}

void CGridSelection::Select(EKind kind, SGridCell cell, bool extend) noexcept
{
    if (!HasCells())
        return;
    m_focus = {std::min(cell.row, m_rows - 1), std::min(cell.column, m_columns - 1)};
    if (!extend || m_kind == EKind::None)
        m_anchor = m_focus;
    m_kind = kind;
}

void CGridSelection::SelectCell(SGridCell cell, bool extend) noexcept
{
    Select(EKind::Cells, cell, extend);
}

void CGridSelection::SelectRow(std::size_t row, bool extend) noexcept
{
    Select(EKind::Rows, {row, 0}, extend);
}

void CGridSelection::SelectColumn(std::size_t column, bool extend) noexcept
{
    Select(EKind::Columns, {0, column}, extend);
}

void CGridSelection::ExtendTo(SGridCell cell) noexcept
{
    Select(m_kind == EKind::Rows || m_kind == EKind::Columns ? m_kind : EKind::Cells, cell, true);
}

void CGridSelection::SelectAll() noexcept
{
    Select(EKind::All, m_focus, false);
}

bool CGridSelection::Move(const SGridKey& key, std::size_t pageRows, SGridCell& cell) const noexcept
{
    const bool toEnd = key.modifiers.control;
    const std::size_t page = std::max<std::size_t>(Before(pageRows, 1), 1);
    switch (key.key) {
    case EGridKey::Left:
        cell.column = toEnd ? 0 : Before(cell.column, 1);
        return true;
    case EGridKey::Right:
        cell.column = toEnd ? m_columns : cell.column + 1;
        return true;
    case EGridKey::Up:
        cell.row = toEnd ? 0 : Before(cell.row, 1);
        return true;
    case EGridKey::Down:
        cell.row = toEnd ? m_rows : cell.row + 1;
        return true;
    case EGridKey::PageUp:
        cell.row = Before(cell.row, page);
        return true;
    case EGridKey::PageDown:
        cell.row += page;
        return true;
    case EGridKey::Home:
        cell = {toEnd ? 0 : cell.row, 0};
        return true;
    case EGridKey::End:
        cell = {toEnd ? m_rows : cell.row, m_columns};
        return true;
    default:
        return false;
    }
}

bool CGridSelection::OnKey(const SGridKey& key, std::size_t pageRows) noexcept
{
    if (!HasCells())
        return false;
    if (key.key == EGridKey::A && key.modifiers.control) {
        SelectAll();
        return true;
    }
    SGridCell cell = m_focus;
    if (!Move(key, pageRows, cell))
        return false;
    SelectCell(cell, key.modifiers.shift);
    return true;
}

} // namespace CommonUI
