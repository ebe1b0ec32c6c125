#pragma once

#include "ResultPanelView.h"
#include "ResultTables.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace CommonUI
{

/// The kinds of files that results are saved as.
enum class EResultFile { Text, SpreadsheetCsv, MachineCsv, Html, Pdf };

/// Results as the user looks at them: the tables with units, number formats, hidden quantities and widths of
/// the user's choice, which it keeps in a layout, and what is done with them. A view, lent by the
/// application's toolkit, shows it, in a dialog or as a pane of another window.
///
/// User-interface thread only.
class COMMONUI_API CResultPanel : public CViewedControl<CResultPanelView>
{
public:
    /// What is copied.
    enum class EScope {
        Selection, ///< what is selected in the table that the user works in; if nothing is, everything
        Everything ///< all tables
    };

    /// @param layouts must outlive the panel
    explicit CResultPanel(CResultLayoutManager& layouts = GetResultLayoutManager());
    ~CResultPanel();

    /// Null takes the view away. The view is not owned; either may go first.
    void SetView(CResultPanelView* view);

    /// Shows results in place of those before, in the layout that is kept for such results.
    void SetResults(std::shared_ptr<const SResultSet> results);
    /// The results that are shown; an empty set before any were given. Valid until others are.
    const SResultSet& GetResults() const noexcept { return *m_results; }
    /// How the user wants to see these results; see CResultLayoutManager::Get.
    const SResultLayout& GetLayout() const { return m_layouts->Get(m_results->name); }
    /// The tables as they are shown, with what is selected in them. They are made anew in place.
    const CResultTables& GetTables() const noexcept { return *m_tables; }
    /// The same, for a view that selects in them, and may outlive the panel. They are made anew in place.
    std::shared_ptr<CResultTables> ShareTables() const noexcept { return m_tables; }
    /// The lines below the tables; none while the user does not want them.
    std::vector<CStr> GetNotes() const;
    /// Whether there are lines to show below the tables, wanted by the user or not.
    bool HasNotes() const { return !m_tables->GetNotes().GetLines().empty(); }

    /// The quantities, by their places in the results, that a menu at a cell is about: those of which
    /// something is selected, if its own is among them, otherwise its own alone.
    /// @param range what is selected in the table
    std::vector<std::size_t> GetQuantities(EResultTable table, SGridCell cell, const SGridRange& range) const;
    /// The units in which these quantities can be shown; none where there is nothing to choose, or they have
    /// no unit in common.
    std::vector<CParameter::CScaling> GetUnits(std::span<const std::size_t> quantities) const;
    /// The unit factor in which a quantity is shown.
    CUnit::EUnitFactor GetUnitFactor(std::size_t quantity) const;
    /// Whether a quantity is in no table now.
    bool IsHidden(std::size_t quantity) const;
    /// Whether something would be left to see.
    bool CanHide(std::span<const std::size_t> quantities) const;
    /// Whether the results have few enough rows: see CResultTables::c_mostTransposedRows.
    bool CanTranspose() const noexcept;

    /// Shows quantities in a unit of GetUnits; the one that the analysis gives is no choice any more.
    void SetUnitFactor(std::span<const std::size_t> quantities, CUnit::EUnitFactor factor);
    /// Asks for a number format of these quantities.
    void ChangeFormat(std::span<const std::size_t> quantities);
    /// Hides quantities, unless nothing would be left, or shows them again. What is hidden is in no copy and
    /// no file.
    void Hide(std::span<const std::size_t> quantities, bool hide);
    /// Shows all quantities that are hidden again.
    void ShowAll();
    /// Shows the quantities as rows, or as columns again. Nothing happens unless CanTranspose.
    void Transpose(bool transpose);
    /// Shows or hides the reasons of empty cells below the tables.
    void ShowNotes(bool show);
    /// The signs of texts for spreadsheets: see SResultLayout.
    void SetSeparator(char16_t separator);
    /// The sign in front of decimals, a point or a comma.
    void SetDecimal(char16_t decimal);

    /// The user works in a table now.
    void OnTable(EResultTable table) noexcept { m_current = table; }
    /// The user has given a column another width.
    /// @param width in hundredths of the height of a line
    void OnWidth(EResultTable table, std::size_t column, int width);
    /// The user has given the tables other heights: see SResultLayout. One that is not shown keeps its own.
    void OnHeights(const std::array<std::optional<int>, CResultTables::c_count>& heights);
    /// The width that the user has given a column; 0 for none.
    int GetWidth(EResultTable table, std::size_t column) const;

    /// What a copy command puts on the clipboard, and what is dragged.
    CGridBaseOutputCtrl::SCopiedTexts GetTexts(EScope scope, ENumberProfile kind) const;
    /// @return false when there is nothing to copy, or another program holds the clipboard
    bool Copy(EScope scope, ENumberProfile kind) const;
    /// Asks for a file and writes it. A file that is there stays whole until the new one is, and where it
    /// cannot be written a message says why.
    /// @return false when nothing was written
    bool Save(EResultFile kind) const;
    /// What Save writes.
    std::string MakeFile(EResultFile kind) const;
    /// What is printed is what is shown when the user has chosen a printer.
    void Print();
    /// What is printed, and what a PDF file shows. The tables stay the panel's and change with what it shows.
    SResultPages GetPages() const;

private:
    SResultLayout& Layout() { return m_layouts->Get(m_results->name); }
    using EPart = SResultLayoutChange::EPart;

    void Update();
    void UpdateState() const;
    // Tells the other panels that show the same layout.
    void Announce(const CStr& name, EPart part);
    void Announce(EPart part) { Announce(m_results->name, part); }
    void OnLayout(const SResultLayoutChange& change);
    void OnLayoutChanged();
    void OnSignsChanged();
    std::vector<std::size_t> GetAll() const;
    CStr MakeText(const SNumberProfile& profile, bool summary) const;
    CStr MakeHtml() const;

    CResultLayoutManager* m_layouts;
    CClosureConnection m_connection;
    std::shared_ptr<const SResultSet> m_results;
    std::shared_ptr<CResultTables> m_tables;
    EResultTable m_current = EResultTable::Results;
};

} // namespace CommonUI
