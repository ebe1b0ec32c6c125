#pragma once

#include "../../export/Export.h"
#include "GridItem.h"
#include "GridRowList.h"

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace CommonUI
{

/// A row of a grid: an item for each column, and rows below it that are shown while it is expanded.
class COMMONUI_API CGridRow
{
public:
    /// Rows are made by CGridCtrl::AddRow and AddSubRow. @param parent null for a row at the top
    CGridRow(CGridCtrl& grid, CGridRow* parent);
    ~CGridRow();
    CGridRow(const CGridRow&) = delete;
    CGridRow& operator=(const CGridRow&) = delete;

    /// The grid that owns the row; never null.
    CGridCtrl* GetGrid() const noexcept { return &m_grid; }
    /// The row that this one is below; null for one at the top.
    CGridRow* GetParent() const noexcept { return m_parent; }
    /// How many rows this one is below.
    std::size_t GetDepth() const noexcept;

    /// Puts an item into the next column, or into that column in place of the one there. An item that is in
    /// another place leaves it.
    void Add(const std::shared_ptr<CGridItem>& item) { Set(m_items.size(), item); }
    /// Columns between the last item and this one stay empty; a null item empties the column.
    void Set(std::size_t column, const std::shared_ptr<CGridItem>& item);
    /// Makes an item for the next column.
    template<class TItem, class... TArgs>
    TItem& Emplace(TArgs&&... arguments)
    {
        auto item = std::make_shared<TItem>(std::forward<TArgs>(arguments)...);
        Add(item);
        return *item;
    }
    /// The item of a column; null where there is none.
    std::shared_ptr<CGridItem> GetItem(std::size_t column) const;
    /// The column of an item that is in the row.
    std::size_t GetColumnOf(const CGridItem& item) const noexcept;

    /// Appends a row below this one. The grid owns it until it is removed.
    CGridRow& AddSubRow();
    /// Whether there are rows below this one, be they shown or not.
    bool HasSubRows() const noexcept { return !m_subRows.empty(); }
    /// The rows below this one, from top to bottom, without those below them.
    const CGridRowList<std::unique_ptr<CGridRow>>& GetSubRows() const noexcept { return m_subRows; }
    /// Whether the rows below this one are shown where this one is; true from the start.
    bool IsExpanded() const noexcept { return m_expanded; }
    /// Shows or hides the rows below this one. A focus among those that are hidden moves up to this row.
    void SetExpanded(bool expanded);

private:
    friend class CGridCtrl;
    template<class TRow>
    friend class CGridRowList;

    // The part of the list of that type that the row is in, or null.
    template<class TRow, class TSelf>
    static auto& PartOf(TSelf& row) noexcept
    {
        if constexpr (std::is_pointer_v<TRow>)
            return row.m_shownPart;
        else
            return row.m_ownPart;
    }

    CGridCtrl& m_grid;
    CGridRow* m_parent;
    std::vector<std::shared_ptr<CGridItem>> m_items;
    CGridRowList<std::unique_ptr<CGridRow>> m_subRows;
    bool m_expanded = true;
    Detail::SGridRowPart* m_ownPart = nullptr;   // among the rows at the top, or below the same row
    Detail::SGridRowPart* m_shownPart = nullptr; // among the rows that are shown
};

} // namespace CommonUI
