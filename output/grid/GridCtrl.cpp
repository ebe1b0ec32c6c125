#include "output/grid/GridCtrl.h"

#include "output/grid/detail/GridRowListParts.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

// More rows than this share of those shown are put into the list all together.
constexpr std::size_t c_many = 64;

// Visits the row and those below it that are shown when it is.
template<class FVisit>
void ForEachShown(CGridRow& row, FVisit&& visit)
{
    visit(row);
    if (row.IsExpanded())
        for (const auto& subRow : row.GetSubRows())
            ForEachShown(*subRow, visit);
}

std::size_t CountShown(CGridRow& row)
{
    std::size_t count = 0;
    ForEachShown(row, [&count](const CGridRow&) { ++count; });
    return count;
}

} // namespace

CGridCtrl::CGridCtrl() = default;

CGridCtrl::~CGridCtrl()
{
    CancelEdit();
}

void CGridCtrl::AddColumn(const SColumn& column)
{
    m_columns.push_back(column);
    try {
        AddColumnWidth(column.width);
    } catch (...) {
        m_columns.resize(GetColumnCount());
        throw;
    }
}

CGridRow& CGridCtrl::AddRow()
{
    m_rows.Append(std::make_unique<CGridRow>(*this, nullptr));
    CGridRow& row = *m_rows.back();
    try {
        m_shown.Append(&row);
    } catch (...) {
        m_rows.Take(m_rows.size() - 1);
        throw;
    }
    SetRowCount(m_shown.size());
    return row;
}

void CGridCtrl::RemoveRow(CGridRow& row)
{
    auto& rows = row.m_parent ? row.m_parent->m_subRows : m_rows;
    std::unique_ptr<CGridRow> removed;
    ChangeShown([&] {
        if (IsShown(row))
            m_shown.Erase(m_shown.PlaceOf(row), CountShown(row));
        removed = rows.Take(rows.PlaceOf(row));
        const CGridRow* const parent = row.m_parent;
        if (parent ? !parent->m_parent && !parent->HasSubRows() : row.HasSubRows())
            --m_trees;
    });
}

void CGridCtrl::RemoveAllRows()
{
    const auto removed = std::exchange(m_rows, {});
    ChangeShown([this] {
        m_shown.Clear();
        m_trees = 0;
    });
}

template<class FChange>
void CGridCtrl::ChangeShown(FChange&& change)
{
    const SGridCell focus = GetSelection().GetFocus();
    const CGridRow* row = focus.row < m_shown.size() ? m_shown[focus.row] : nullptr;
    change();
    SetRowCount(m_shown.size());
    // The focus stays with its row, or goes to the one above that now hides it.
    while (row && !IsShown(*row))
        row = row->m_parent;
    if (row && m_shown.PlaceOf(*row) != focus.row)
        EditSelection().SelectCell({m_shown.PlaceOf(*row), focus.column});
    ItemsChanged();
}

void CGridCtrl::ExpansionChanged(CGridRow& row)
{
    ChangeShown([&] {
        if (!IsShown(row))
            return;
        const std::size_t below = m_shown.PlaceOf(row) + 1;
        std::size_t count = 0;
        for (const auto& subRow : row.GetSubRows())
            count += CountShown(*subRow);
        if (!row.IsExpanded()) {
            m_shown.Erase(below, count);
            return;
        }
        try {
            if (count > m_shown.size() / c_many)
                ShowAll();
            else
                ShowBelow(row, below);
        } catch (...) {
            row.m_expanded = false;
            throw;
        }
    });
}

void CGridCtrl::ShowBelow(CGridRow& row, std::size_t place)
{
    const std::size_t first = place;
    try {
        ForEachShown(row, [&](CGridRow& shown) {
            if (&shown == &row)
                return;
            m_shown.Insert(place, &shown);
            ++place;
        });
    } catch (...) {
        m_shown.Erase(first, place - first);
        throw;
    }
}

void CGridCtrl::ShowAll()
{
    CGridRowList<CGridRow*> all;
    try {
        for (const auto& row : m_rows)
            ForEachShown(*row, [&all](CGridRow& shown) { all.Append(&shown); });
    } catch (...) {
        all.Clear();
        m_shown.TellRows();
        throw;
    }
    m_shown = std::move(all);
}

// Keeps the other rows in their places, so that a tree can be built row by row.
void CGridCtrl::SubRowAdded(CGridRow& row)
{
    CGridRow& parent = *row.m_parent;
    const std::size_t count = parent.m_subRows.size();
    const CGridRow* last = &parent;
    if (count > 1)
        last = parent.m_subRows[count - 2].get();
    while (last != &parent && last->IsExpanded() && last->HasSubRows())
        last = last->m_subRows.back().get();
    ChangeShown([&] {
        try {
            if (parent.IsExpanded() && IsShown(parent))
                m_shown.Insert(m_shown.PlaceOf(*last) + 1, &row);
        } catch (...) {
            parent.m_subRows.Take(count - 1);
            throw;
        }
        if (!parent.m_parent && count == 1)
            ++m_trees;
    });
}

void CGridCtrl::ItemsChanged()
{
    OnLayoutChanged();
    Redraw();
}

// An editor follows its cell, and closes when there is none any more.
void CGridCtrl::OnLayoutChanged()
{
    if (!m_editing)
        return;
    const std::shared_ptr<CGridItem> item = m_edited.lock();
    const SRect rect = item && item->GetGrid() == this ? GetItemRect(*item) : SRect{};
    if (rect.IsEmpty())
        CancelEdit();
    else if (GetView())
        GetView()->MoveEditor(rect);
}

void CGridCtrl::SetView(CGridView* view)
{
    m_editing = false;
    CGridPane::SetView(view);
}

SSpokenCell CGridCtrl::Speak(SGridCell cell) const
{
    SSpokenCell spoken;
    if (const auto item = GetItem(cell)) {
        spoken.text = item->GetSpokenText();
        spoken.enabled = item->IsEnabled();
        spoken.readOnly = !item->CanChange();
    }
    if (cell.column == 0 && cell.row < m_shown.size()) {
        spoken.hasSubRows = m_shown[cell.row]->HasSubRows();
        spoken.expanded = m_shown[cell.row]->IsExpanded();
    }
    return spoken;
}

CStr CGridCtrl::SpeakHeader(std::size_t column) const
{
    return column < m_columns.size() ? m_columns[column].header : CStr();
}

int CGridCtrl::GetFittingWidth(std::size_t column) const
{
    constexpr int c_wide = 1 << 20;
    int width = GetView()->GetTextWidth(m_columns[column].header) + 4 * c_margin + GetHeaderIndent(column);
    for (std::size_t row = 0; row < std::min(m_shown.size(), c_fittedRows); ++row) {
        const auto item = GetItem({row, column});
        if (!item)
            continue;
        const SRect place{0, 0, c_wide, GetRowHeight()};
        int needed =
            GetView()->GetTextWidth(item->FormatItem()) + c_wide - item->GetTextRect(place).GetWidth();
        if (HasTree() && column == 0)
            needed += GetExpanderRect({row, 0}, {}).right;
        width = std::max(width, needed);
    }
    return width + GetFittingRoom();
}

std::shared_ptr<CGridItem> CGridCtrl::GetItem(SGridCell cell) const
{
    return cell.row < m_shown.size() ? m_shown[cell.row]->GetItem(cell.column) : nullptr;
}

void CGridCtrl::SetReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    if (readOnly)
        CancelEdit();
    Redraw();
}

bool CGridCtrl::IsSelected(const CGridItem& item) const
{
    const CGridRow* const row = item.GetRow();
    return row && IsShown(*row) && GetSelection().Contains({m_shown.PlaceOf(*row), row->GetColumnOf(item)});
}

SRect CGridCtrl::GetItemRect(const CGridItem& item) const
{
    const CGridRow* const row = item.GetRow();
    if (!row || !IsShown(*row))
        return {};
    const std::size_t column = row->GetColumnOf(item);
    return column < GetColumnCount() ? GetContentRect({m_shown.PlaceOf(*row), column}) : SRect{};
}

SRect CGridCtrl::GetExpanderRect(SGridCell cell, const SRect& rect) const
{
    const int left = rect.left + static_cast<int>(m_shown[cell.row]->GetDepth()) * GetRowHeight();
    return SRect{left, rect.top, left + GetRowHeight(), rect.bottom};
}

SRect CGridCtrl::GetContentRect(SGridCell cell) const
{
    SRect rect = GetCellRect(cell);
    if (HasTree() && cell.column == 0)
        rect.left = std::min(GetExpanderRect(cell, rect).right, rect.right);
    return rect;
}

void CGridCtrl::RedrawItem(const CGridItem& item) const
{
    if (const SRect rect = GetItemRect(item); GetView() && !rect.IsEmpty())
        GetView()->Invalidate(rect);
}

void CGridCtrl::OnItemChanged(CGridItem& item, int id)
{
    if (const auto closure = m_changeSlot.Share<void, CGridItem&, int>())
        closure->Invoke(item, id);
}

void CGridCtrl::DrawCell(CGridPainter& painter, SGridCell cell, const SRect& rect) const
{
    const SRect content = GetContentRect(cell);
    if (content != rect)
        painter.FillBackground(rect, EGridBackground::Plain);
    if (const auto item = GetItem(cell))
        item->OnDrawValue(painter, content);
    else
        painter.FillBackground(content, GetSelection().Contains(cell) ? EGridBackground::Selected
                                                                      : EGridBackground::Plain);
    if (content != rect && m_shown[cell.row]->HasSubRows())
        painter.DrawExpander(GetExpanderRect(cell, rect).Shrunk(c_margin, c_margin),
                             m_shown[cell.row]->IsExpanded());
}

void CGridCtrl::DrawHeader(CGridPainter& painter, std::size_t first, std::size_t last) const
{
    for (std::size_t column = first; column <= last; ++column) {
        SRect rect = GetCellRect({0, column});
        rect.top = 0;
        rect.bottom = GetHeaderHeight();
        painter.FillBackground(rect, GetSelection().HasColumn(column) ? EGridBackground::MarkedHeader
                                                                      : EGridBackground::Header);
        rect.left += GetHeaderIndent(column);
        if (const SRect place = rect.Shrunk(2 * c_margin, 0); !place.IsEmpty())
            painter.WriteText(place, m_columns[column].header, EGridAlign::Left);
    }
}

} // namespace CommonUI
