#pragma once

#include "../../common/Str.h"
#include "../MultiClosure.h"

#include <cstddef>
#include <optional>
#include <set>
#include <vector>

namespace CommonUI
{

/// A column of an extended list.
struct SExtendedColumn {
    CStr title{};          ///< in the head
    bool isNumber = false; ///< sorted by its numbers and shown to the right

    friend bool operator==(const SExtendedColumn&, const SExtendedColumn&) = default;
};

/// A cell of an extended list.
struct SExtendedCell {
    CStr text{};                    ///< that is shown and filtered
    std::optional<double> number{}; ///< by which a column of numbers is sorted; empty where there is no value
};

/// A row of an extended list.
struct SExtendedRow {
    std::vector<SExtendedCell> cells{}; ///< those that are missing at the end are empty
    CStr group{};                       ///< below whose head it stands while the list is grouped
    bool checked = false;               ///< its box
};

/// A line that is shown: a row, or the head of a group with its rows behind it.
struct SExtendedLine {
    std::size_t row = 0;       ///< of a group, its first one that is shown
    std::size_t groupSize = 0; ///< how many rows the group has that pass the filter; 0 for a row

    /// Whether the line is the head of a group.
    bool IsGroup() const noexcept { return groupSize > 0; }
    friend bool operator==(const SExtendedLine&, const SExtendedLine&) = default;
};

/// The order of an extended list.
struct SExtendedOrder {
    std::size_t column = 0;  ///< by which rows are sorted
    bool descending = false; ///< the greatest first; rows without a value come last all the same

    friend bool operator==(const SExtendedOrder&, const SExtendedOrder&) = default;
};

/// The logic of a list with columns: the user sorts, filters, folds groups and checks rows. Made for 10^5
/// rows: what comes out is a list of lines, from which a view draws those it shows.
///
/// Rows keep the index in which they were set. Rows without a value come last in either order; equal ones
/// keep their order.
class COMMONUI_API CExtendedList
{
public:
    CExtendedList();
    ~CExtendedList();
    CExtendedList(const CExtendedList&) = delete;
    CExtendedList& operator=(const CExtendedList&) = delete;

    /// Replaces the columns and removes all rows and the order.
    void SetColumns(std::vector<SExtendedColumn> columns);
    /// The columns from left to right.
    const std::vector<SExtendedColumn>& GetColumns() const noexcept { return m_columns; }
    /// Replaces the rows; order, filter and folded groups stay.
    void SetRows(std::vector<SExtendedRow> rows);
    /// The rows in the order in which they were set, whatever is shown.
    const std::vector<SExtendedRow>& GetRows() const noexcept { return m_rows; }
    /// The text of a cell; empty for one that is missing. @param row below the count of rows
    const CStr& GetText(std::size_t row, std::size_t column) const;

    /// @param order empty for that of the rows
    void SetOrder(const std::optional<SExtendedOrder>& order);
    /// The order that was chosen last; empty for that of the rows.
    const std::optional<SExtendedOrder>& GetOrder() const noexcept { return m_order; }
    /// What a click on the head of a column does: rising, falling, the order of the rows, and again.
    void CycleOrder(std::size_t column);

    /// Shows the rows that have every word of the text in some cell, in any case of letters.
    void SetFilter(const CStr& text);
    /// The text as it was set; empty where all rows are shown.
    const CStr& GetFilter() const noexcept { return m_filter; }

    /// Whether rows stand below the heads of their groups, which come in the order of their first rows.
    void SetGrouped(bool grouped);
    /// Whether rows stand below the heads of their groups; at first not.
    bool IsGrouped() const noexcept { return m_grouped; }
    /// Hides the rows of a group below its head, or shows them. A group that is not there yet comes folded.
    void FoldGroup(const CStr& group, bool fold);
    /// Whether the rows of a group are hidden while the list is grouped.
    bool IsFolded(const CStr& group) const { return m_folded.contains(group); }

    /// Checks a row or not, shown or not. An index beyond the rows changes nothing.
    void Check(std::size_t row, bool checked);
    /// Checks every row that passes the filter, in folded groups as well. @param group of one group only;
    /// null for all
    void CheckShown(bool checked, const CStr* group = nullptr);
    /// Whether the rows of a group that pass the filter are checked: true, false, or empty for some.
    std::optional<bool> IsGroupChecked(const CStr& group) const;
    /// How many rows are checked, shown or not.
    std::size_t GetCheckedCount() const;

    /// What is to be shown, from the top.
    const std::vector<SExtendedLine>& GetLines() const noexcept { return m_lines; }
    /// How many rows pass the filter.
    std::size_t GetFoundCount() const noexcept { return m_found.size(); }

    /// Called after there are other lines.
    CMultiClosure0<void>& GetLinesChanged() noexcept { return m_linesChanged; }
    /// Called after rows were checked or not.
    CMultiClosure0<void>& GetChecksChanged() noexcept { return m_checksChanged; }

private:
    void Sort();
    void Find();
    void BuildLines();
    void AppendGroups();
    bool Precedes(std::size_t one, std::size_t other) const;

    std::vector<SExtendedColumn> m_columns;
    std::vector<SExtendedRow> m_rows;
    std::optional<SExtendedOrder> m_order;
    CStr m_filter;
    bool m_grouped = false;
    std::set<CStr> m_folded;
    std::vector<CStr> m_searched; // the texts of each row in small letters; empty before the first filter
    std::vector<std::size_t> m_sorted; // all rows
    std::vector<std::size_t> m_found;  // those that pass the filter
    std::vector<SExtendedLine> m_lines;
    CMultiClosure0<void> m_linesChanged;
    CMultiClosure0<void> m_checksChanged;
};

} // namespace CommonUI
