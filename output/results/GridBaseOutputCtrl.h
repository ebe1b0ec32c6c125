#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../grid/GridFormats.h"
#include "../grid/GridSelection.h"
#include "EndResults.h"
#include "NumberProfile.h"
#include "ValueState.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace CommonUI
{

/// A table of results (summary, results or statistics) that holds its cells in memory, and the texts made
/// from such tables: tab-separated text and HTML, for the clipboard and for reports.
///
/// The class has no window. A view shows it; reports are generated from it as it stands. Not safe to change
/// in one thread and read in another.
class COMMONUI_API CGridBaseOutputCtrl
{
public:
    /// One cell of a table that is copied or written.
    struct SCellInfo {
        /// The grid that a table of cells is taken from, as a bit.
        enum ECellType { Summary = 1, Results = 2, Statistics = 4 };

        /// Bits of `flags`. Others are kept and copied unchanged.
        enum EFlag : std::uint32_t {
            /// A row that belongs to the column headers but is written as a body row, such as units.
            SubHeader = 0x02,
            ColumnHeader = 0x08, ///< the header cell of a column; its text may hold several lines
            MergedHeader = 0x10, ///< a group name that spans several columns
            RowHeader = 0x20     ///< the header cell of a row; written left-aligned
        };

        CStr text; ///< lines of a header text are separated by "\r\n"
        /// Columns that the cell covers; 0 or less for a cell that is covered by another.
        std::int32_t columnSpan = 1;
        std::int32_t rowSpan = 1; ///< rows that the cell covers
        std::int32_t indent = 0;  ///< indentation level of a summary line
        std::uint32_t flags = 0;  ///< bits of EFlag

        /// Whether a flag is set.
        bool Has(EFlag flag) const noexcept { return (flags & flag) != 0; }
        bool operator==(const SCellInfo& other) const = default;
    };

    /// A row from left to right.
    using CRow = std::vector<SCellInfo>;
    /// The rows from top to bottom, which may have different lengths.
    using CCells = std::vector<CRow>;

    /// A column with its header text, wrapped by "\r\n", and the name of the group that it belongs to
    /// together with its neighbours of the same group name. In tab-separated text a group's name takes one
    /// cell however many columns it spans, so that the names of later groups do not stand over their columns;
    /// HTML shows them right.
    struct SColumn {
        CStr header; ///< lines are separated by "\r\n"
        CStr group;  ///< empty for a column that belongs to no group
        /// How the column's cells are shown and copied. Empty cells and sub-headers stand as they are.
        CGridFormats formats{};
        /// The header in the profile for machines, such as a key; empty where it is the one shown.
        CStr exactHeader{};
        CStr exactGroup{}; ///< likewise of the group
    };

    /// The text of a cell in the profile for machines.
    struct SExactText {
        std::size_t column; ///< 0 for the row's name, 1 for the first cell
        CStr text;          ///< in place of the one that is shown
    };

    /// The state of a cell that has no value.
    struct SCellState {
        std::size_t column; ///< 1 for the first cell
        SValueState state;  ///< with the reason, for a tool tip
    };

    /// A row of the table: its name and the texts of its cells, column by column.
    struct SRow {
        CStr name;               ///< in the column of the names
        std::vector<CStr> cells; ///< from left to right; an empty one is an empty cell
        int indent = 0;          ///< of the name and the cells; for summary lines
        bool subHeader = false;  ///< belongs to the column headers, such as a row of units
        unsigned long data = 0;  ///< whatever the application keeps with the row
        /// Why cells are empty: an entry for each that has something to say, none for values. Texts do not
        /// show it.
        std::vector<SCellState> states{};
        /// What the cells' texts were made of, at unit factor 1, for the profile for machines: cell by cell,
        /// NaN for one that stands as it is shown. Empty where all do.
        std::vector<double> values{};
        std::vector<SExactText> exactTexts{}; ///< likewise, of texts such as keys and units
    };

    /// A rectangle of cells, both ends included. Column 0 is that of the row names, column 1 the first of the
    /// cells.
    using SSelection = SGridRange;

    /// What a copy command puts on the clipboard: both forms together.
    struct SCopiedTexts {
        CStr html; ///< one or more tables with their style sheet
        CStr text; ///< a line for each row
    };

    /// An empty table that delivers cells of that type.
    explicit CGridBaseOutputCtrl(SCellInfo::ECellType type)
        : m_type(type)
    {
    }

    /// What the table is for; one of the bits that GetGridCells asks for.
    SCellInfo::ECellType GetType() const noexcept { return m_type; }

    /// The header above the row names.
    /// @param exactHeader in the profile for machines; empty where it is the one shown
    void SetNameHeader(const CStr& header, const CStr& exactHeader = {})
    {
        m_nameHeader = header;
        m_exactNameHeader = exactHeader;
    }
    /// The header above the row names as it is shown; empty from the start.
    const CStr& GetNameHeader() const noexcept { return m_nameHeader; }
    /// Appends a column at the right. Rows that have no cell for it show an empty one.
    void AddColumn(const SColumn& column) { m_columns.push_back(column); }
    /// The columns of cells, that of the names not counted.
    int GetColumnCount() const noexcept { return static_cast<int>(m_columns.size()); }
    /// The columns from left to right, that of the names left out.
    const std::vector<SColumn>& GetColumns() const noexcept { return m_columns; }

    /// Appends a row. In the table it has as many cells as there are columns, empty ones where it has fewer;
    /// the rows of a summary, which has no columns, keep their own counts.
    void AddRow(SRow row);
    /// The rows from top to bottom. A row stays where it is in memory when others are added.
    const std::deque<SRow>& GetRows() const noexcept { return m_rows; }
    /// How many columns can be selected: that of the names, and those of the cells or, in a summary, as many
    /// as the longest row has cells.
    std::size_t GetWidth() const noexcept;
    /// The text that a cell shows; empty where the row has none. @param column 0 for the row's name, 1 for
    /// the first cell
    CStr GetCellText(const SRow& row, std::size_t column) const;
    /// What a cell stands for: a value, unless the row says otherwise. @param column as of GetCellText
    static const SValueState& GetCellState(const SRow& row, std::size_t column);
    /// Removes columns, rows and selection.
    void Clear();

    /// Adds a row from one line. Runs of delimiters count as one and there is no empty token; the first token
    /// is the row's name, the others its cells, where a token of blanks alone is an empty cell. Tokens beyond
    /// the last column are not shown, with a line in the diagnostics.
    /// @param delimiters every one of its code units separates
    /// @param subHeader whether the row belongs to the column headers
    /// @param atTop whether the row goes in front of all others
    /// @param data kept with the row for the application
    /// @return false, and nothing is added, when the line has no token
    bool InsertTokenizableRow(const CStr& line, const CStr& delimiters, bool subHeader = false,
                              bool atTop = false, unsigned long data = 0);

    /// Adds a row for every item of a collection that has values; nothing for a null one.
    /// @param blankColumns see SEndResultItem::CreateTokenizableString
    void AddResultsToGrid(const SEndResultCollection* collection, std::vector<int> blankColumns);

    /// Appends the header rows to `cells` when the grid's type is among the bits of `type`: the group names,
    /// where a column has one, and the column names.
    /// @param exact whether they are those for machines instead of those shown
    void GetGridHeaders(CCells& cells, int type, bool exact = false) const;
    /// Appends the rows to `cells` when the grid's type is among the bits of `type`.
    void GetGridCells(CCells& cells, int type, bool exact = false) const;

    /// Selects a rectangle of cells, cut to what the table has. Rows are selected by their position.
    void Select(const SSelection& selection);
    /// Selects all cells with the row names; nothing in a table without rows.
    void SelectAll();
    /// Nothing is selected from now on.
    void ClearSelection();
    /// Whether any cell is selected.
    bool HasSelection() const noexcept { return m_hasSelection; }
    /// Appends the selected cells to `cells`, below the headers of their columns where that is asked for. A
    /// header of several lines becomes one line.
    void GetSelectedCells(CCells& cells, bool headers, bool exact = false) const;
    /// The selected cells as HTML and as tab-separated text, or as the profile separates it; both empty when
    /// nothing is selected.
    SCopiedTexts CopySelectionAsHTML(bool transpose, bool headers, const SNumberProfile& profile = {}) const;

    /// Summary cells as text: a line for each row, ": " behind the last cell but one.
    static CStr GenerateSummaryText(const CCells& cells);
    /// Summary cells as an HTML table.
    static CStr GenerateSummaryHTMLTable(const CCells& cells);
    /// Cells with their headers as tab-separated text. Cells of several lines stand in as many physical
    /// lines.
    static CStr GenerateResultsText(const CCells& cells);
    /// Cells with their headers as an HTML table with header and body sections. Texts are inserted as they
    /// are, markup characters included.
    /// @param omitColumnGroup leaves out the element that gives the first column its class
    /// @param fullWidth makes the table as wide as the page
    static CStr GenerateResultsHTMLTable(const CCells& cells, bool omitColumnGroup = false,
                                         bool fullWidth = false);
    /// Turns a table through 90 degrees in place: columns become rows, column headers become row headers. A
    /// row of group names on top becomes rows of their own, each in front of the rows of its group.
    static void TransposeCells(CCells& cells);
    /// The style sheet that goes in front of the HTML tables.
    static CStr GenerateHTMLTableStyle();
    /// The text of up to three grids, each of which may be null: the summary, then results and statistics as
    /// one table.
    static CStr GenerateText(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                             const CGridBaseOutputCtrl* statistics, bool transpose);
    /// The same as HTML, with the style sheet in front; empty when there is nothing to show.
    static CStr GenerateHTMLTables(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                                   const CGridBaseOutputCtrl* statistics, bool transpose,
                                   bool omitColumnGroup = false);

private:
    bool Delivers(int type) const noexcept { return (type & m_type) != 0; }
    CRow GroupRow(bool exact) const;
    CRow HeaderRow(bool exact) const;
    CRow BodyRow(const SRow& row, bool exact) const;

    SCellInfo::ECellType m_type;
    CStr m_nameHeader;
    CStr m_exactNameHeader;
    std::vector<SColumn> m_columns;
    std::deque<SRow> m_rows;      // grows at both ends at the same cost
    std::size_t m_longestRow = 0; // the cells of the longest row so far
    SSelection m_selection{};
    bool m_hasSelection = false;
};

} // namespace CommonUI
