#include "output/grid/GridRow.h"

#include "output/grid/detail/GridRowListParts.h"
#include "output/grid/GridCtrl.h"

#include <algorithm>

namespace CommonUI
{

CGridRow::CGridRow(CGridCtrl& grid, CGridRow* parent)
    : m_grid(grid)
    , m_parent(parent)
{
}

CGridRow::~CGridRow()
{
    for (const auto& item : m_items) {
        if (item)
            item->m_row = nullptr;
    }
}

std::size_t CGridRow::GetDepth() const noexcept
{
    std::size_t depth = 0;
    for (const CGridRow* row = m_parent; row; row = row->m_parent)
        ++depth;
    return depth;
}

void CGridRow::Set(std::size_t column, const std::shared_ptr<CGridItem>& item)
{
    if (column >= m_items.size())
        m_items.resize(column + 1);
    if (item && item->m_row)
        item->m_row->m_items[item->m_row->GetColumnOf(*item)].reset();
    if (m_items[column])
        m_items[column]->m_row = nullptr;
    m_items[column] = item;
    if (item)
        item->m_row = this;
    m_grid.ItemsChanged();
}

std::shared_ptr<CGridItem> CGridRow::GetItem(std::size_t column) const
{
    return column < m_items.size() ? m_items[column] : nullptr;
}

std::size_t CGridRow::GetColumnOf(const CGridItem& item) const noexcept
{
    const auto found = std::ranges::find(m_items, &item, &std::shared_ptr<CGridItem>::get);
    return static_cast<std::size_t>(found - m_items.begin());
}

CGridRow& CGridRow::AddSubRow()
{
    m_subRows.Append(std::make_unique<CGridRow>(m_grid, this));
    CGridRow& row = *m_subRows.back();
    m_grid.SubRowAdded(row);
    return row;
}

void CGridRow::SetExpanded(bool expanded)
{
    if (m_expanded == expanded)
        return;
    m_expanded = expanded;
    m_grid.ExpansionChanged(*this);
}

} // namespace CommonUI
