#pragma once

#include "../../export/Export.h"

#include <cstddef>

namespace CommonUI
{

/// The place of a cell, counted from the first row below the headers and the first column.
struct SGridCell {
    std::size_t row = 0;    ///< from the top
    std::size_t column = 0; ///< from the left

    friend bool operator==(const SGridCell&, const SGridCell&) = default;
};

/// A rectangle of cells, both ends included.
struct SGridRange {
    std::size_t firstRow;    ///< the one at the top
    std::size_t lastRow;     ///< the one at the bottom
    std::size_t firstColumn; ///< the leftmost
    std::size_t lastColumn;  ///< the rightmost

    /// Whether a cell lies within, ends included.
    bool Contains(SGridCell cell) const noexcept
    {
        return cell.row >= firstRow && cell.row <= lastRow && cell.column >= firstColumn &&
               cell.column <= lastColumn;
    }
    friend bool operator==(const SGridRange&, const SGridRange&) = default;
};

/// The keys that grids know; a toolkit translates its own to them.
enum class EGridKey { Left, Right, Up, Down, Home, End, PageUp, PageDown, Space, Enter, F2, Escape, A, C };

/// The keys that are held down with a key or a mouse button.
struct SGridModifiers {
    bool shift = false;   ///< extends the selection
    bool control = false; ///< goes to the ends of the table
};

/// A key that has been pressed.
struct SGridKey {
    EGridKey key = EGridKey::Enter; ///< the key itself
    SGridModifiers modifiers{};     ///< what is held down with it
};

/// What is selected in a table of any size, and the cell that keys go to. Takes the same time for every size.
///
/// The selection is a rectangle between an anchor and the focus, or whole rows or whole columns between them.
/// A table without cells has neither selection nor focus.
class COMMONUI_API CGridSelection
{
public:
    /// Says how large the table is. The selection is cut to it.
    void SetSize(std::size_t rows, std::size_t columns) noexcept;
    /// Rows are selected as a whole, whatever selects.
    void SetWholeRows(bool whole) noexcept { m_wholeRows = whole; }

    /// Whether nothing is selected. There may be a focus all the same.
    bool IsEmpty() const noexcept { return m_kind == EKind::None; }
    /// The cell that keys go to; the first one where nothing has been selected yet.
    SGridCell GetFocus() const noexcept { return m_focus; }
    /// What is selected. Means nothing when IsEmpty.
    SGridRange GetRange() const noexcept;
    /// Whether a cell is selected.
    bool Contains(SGridCell cell) const noexcept { return !IsEmpty() && GetRange().Contains(cell); }
    /// Whether any cell of a row, or of a column, is selected.
    bool HasRow(std::size_t row) const noexcept { return Contains({row, GetRange().firstColumn}); }
    /// See HasRow.
    bool HasColumn(std::size_t column) const noexcept { return Contains({GetRange().firstRow, column}); }

    /// Each of them moves the focus to the place, cut to the table, and selects from there; with `extend` the
    /// anchor stays where it was.
    void SelectCell(SGridCell cell, bool extend = false) noexcept;
    /// The focus goes to the row's first cell.
    void SelectRow(std::size_t row, bool extend = false) noexcept;
    /// The focus goes to the column's first cell.
    void SelectColumn(std::size_t column, bool extend = false) noexcept;
    /// Moves the focus and leaves the anchor: whole rows and columns stay whole.
    void ExtendTo(SGridCell cell) noexcept;
    /// Leaves the focus where it is.
    void SelectAll() noexcept;
    /// Selects nothing; the focus stays where it is.
    void Clear() noexcept { m_kind = EKind::None; }

    /// Arrows, Page Up and Page Down; Home and End within the row, and with Control to the ends of the table,
    /// as Control does with the arrows; with Shift they extend. Control+A selects everything.
    /// @param pageRows how many rows the view shows
    /// @return whether the key is one of these and there is a table
    bool OnKey(const SGridKey& key, std::size_t pageRows) noexcept;

private:
    enum class EKind { None, Cells, Rows, Columns, All };

    bool HasCells() const noexcept { return m_rows != 0 && m_columns != 0; }
    void Select(EKind kind, SGridCell cell, bool extend) noexcept;
    bool Move(const SGridKey& key, std::size_t pageRows, SGridCell& cell) const noexcept;

    std::size_t m_rows = 0;
    std::size_t m_columns = 0;
    bool m_wholeRows = false;
    EKind m_kind = EKind::None;
    SGridCell m_anchor;
    SGridCell m_focus;
};

} // namespace CommonUI
