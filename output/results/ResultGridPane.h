#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../grid/GridPane.h"
#include "GridBaseOutputCtrl.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace CommonUI
{

/// Shows a table of results: headers of several lines below the names of groups, row names that stay at the
/// left, as the sub-headers above all other rows do with the headers, and cells that are made when they are
/// drawn, so that a million rows open and scroll as fast as a thousand. What is selected here is selected in
/// the table, too.
class COMMONUI_API CResultGridPane : public CGridPane
{
public:
    /// A cell as it is shown.
    struct SShownCell {
        CStr text{}; ///< one line: where a text has several, they are joined by blanks
        EGridAlign align = EGridAlign::Right; ///< of the text in the cell
        int indent = 0;                       ///< in levels
        std::uint32_t flags = 0;              ///< of CGridBaseOutputCtrl::SCellInfo::EFlag
        bool selected = false;                ///< drawn as selected
        bool marked = false;                  ///< the name of a row of which something is selected
    };

    /// A header as it is shown, over one column or, the name of a group, over several.
    struct SShownHeader {
        std::vector<CStr> lines{};            ///< from top to bottom
        std::size_t firstColumn = 0;          ///< the leftmost it stands over
        std::size_t lastColumn = 0;           ///< the rightmost it stands over
        int firstLine = 0;                    ///< the line of the headers that it begins at
        int lineCount = 1;                    ///< that it has room for; its own lines stand at the bottom
        std::uint32_t flags = 0;              ///< of CGridBaseOutputCtrl::SCellInfo::EFlag
        EGridAlign align = EGridAlign::Right; ///< as the cells below it
        bool marked = false;                  ///< of a column of which something is selected
    };

    /// @param grid not owned; it must outlive the pane
    explicit CResultGridPane(CGridBaseOutputCtrl& grid);
    ~CResultGridPane() override;

    /// To be told after the table has got other rows or columns. Columns keep their widths unless their
    /// number has changed.
    void Update();
    /// Groups get the room for their names, too.
    void FitColumns() override;

    /// What is shown in a cell; an empty text outside of the table.
    SShownCell GetCell(SGridCell cell) const;
    /// The headers over the columns from `first` to `last`; groups that reach beyond are given whole.
    std::vector<SShownHeader> GetHeaders(std::size_t first, std::size_t last) const;

    /// Why a cell is empty; nothing where the table does not say it, and outside of it.
    CStr GetToolTip(SGridCell cell) const;

    SSpokenCell Speak(SGridCell cell) const override { return {.text = GetCell(cell).text}; }
    /// With the name of the group in front.
    CStr SpeakHeader(std::size_t column) const override;

    /// Control+C copies the selection with its headers.
    bool OnKey(const SGridKey& key) override;

    /// How many sub-headers stay with the headers. Rows of them beyond that are scrolled.
    COMMONUI_CONSTANT std::size_t c_frozenRows = 4;
    /// By how much a level indents, in pixels.
    COMMONUI_CONSTANT int c_indent = 20;

protected:
    void OnSelectionChanged() override;
    int GetFittingWidth(std::size_t column) const override;
    void DrawCell(CGridPainter& painter, SGridCell cell, const SRect& rect) const override;
    void DrawHeader(CGridPainter& painter, std::size_t first, std::size_t last) const override;

private:
    bool IsSummary() const noexcept { return m_grid.GetType() == CGridBaseOutputCtrl::SCellInfo::Summary; }
    std::size_t CountFrozenRows() const;
    const CStr& GetGroup(std::size_t column) const;
    SShownHeader GetColumnHeader(std::size_t column) const;
    SShownHeader GetGroupHeader(std::size_t column) const;
    // Selects in the table what is selected here.
    void MapSelection();

    CGridBaseOutputCtrl& m_grid;
    int m_groupLines = 0;
    int m_headerLines = 0;
};

} // namespace CommonUI
