#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../../output/grid/GridSelection.h"
#include "../../output/results/Footnotes.h"
#include "../../output/results/GridBaseOutputCtrl.h"
#include "../../output/results/ResultSet.h"
#include "ResultLayout.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI
{

/// Which of the tables, in their order from the top.
enum class EResultTable { Summary, Results, Statistics };

/// Summary, results and statistics as tables, made of a set of results in the layout that the user wants.
/// Where the quantities are rows the statistics are further columns of the results, below a group name, and
/// their own table is empty.
class COMMONUI_API CResultTables
{
public:
    COMMONUI_CONSTANT std::size_t c_count = 3; ///< how many tables there are
    /// Sets of more rows are not transposed: a table of so many columns nobody can read, and few programs.
    COMMONUI_CONSTANT std::size_t c_mostTransposedRows = 1000;

    CResultTables();

    /// Makes the tables anew. What is selected is forgotten.
    void Make(const SResultSet& set, const SResultLayout& layout);

    /// One of the tables, in which the view selects; it lives as long as this object.
    CGridBaseOutputCtrl& Get(EResultTable table) { return m_tables[static_cast<std::size_t>(table)]; }
    /// One of the tables; it lives as long as this object.
    const CGridBaseOutputCtrl& Get(EResultTable table) const
    {
        return m_tables[static_cast<std::size_t>(table)];
    }
    /// Whether the quantities are rows; never for a set of too many rows, whatever the layout says.
    bool IsTransposed() const noexcept { return m_isTransposed; }
    /// Why cells are empty: each reason once, with the quantities that it holds for.
    const CFootnotes& GetNotes() const noexcept { return m_notes; }

    /// The quantities that are shown, by their places in the set, in the order of the tables.
    const std::vector<std::size_t>& GetShown() const noexcept { return m_shown; }
    /// The quantity that a column, or a row where these are the quantities, belongs to.
    std::optional<std::size_t> FindQuantity(EResultTable table, SGridCell cell) const;
    /// The key of a column's width in the layout. @param column 0 for the names
    CStr GetColumnKey(EResultTable table, std::size_t column) const;

    /// A quantity's parameter with the unit and the format that the layout gives it.
    static CParameter GetShownParameter(const SResultQuantity& quantity, const SResultLayout& layout);

private:
    void FillSummary(const SResultSet& set);
    void FillColumns(const SResultSet& set);
    void FillUnits(const SResultSet& set);
    void FillRows(const SResultSet& set);
    void FillStatistics(const SResultSet& set);
    void FillTransposedColumns(const SResultSet& set);
    void FillTransposedRow(const SResultSet& set, std::size_t index);

    std::array<CGridBaseOutputCtrl, c_count> m_tables;
    bool m_isTransposed = false;
    std::vector<std::size_t> m_shown;
    std::vector<CParameter> m_parameters;                // of those, as they are shown
    std::vector<std::optional<std::size_t>> m_rowOwners; // where quantities are rows
    std::vector<CStr> m_columnKeys;
    CFootnotes m_notes;
};

} // namespace CommonUI
