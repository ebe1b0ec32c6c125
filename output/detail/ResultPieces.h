#pragma once

#include "output/GridBaseOutputCtrl.h"

#include <cstddef>
#include <string_view>

namespace CommonUI::Detail
{

/// What separates the lines of a text and the pieces of a cell of several lines.
constexpr std::u16string_view c_lineEnd = u"\r\n";

/// What HTML on the clipboard and in reports begins with.
constexpr std::u16string_view c_metaLine =
    u"<meta content=\"text/html; charset=utf-8\" http-equiv=\"Content-Type\" />\n";

/// Calls `visit` with every piece of a text between its line ends: at least one, which may be empty.
template<class TVisit>
void ForEachPiece(std::u16string_view text, TVisit visit)
{
    for (;;) {
        const std::size_t found = text.find(c_lineEnd);
        visit(text.substr(0, found));
        if (found == std::u16string_view::npos)
            return;
        text.remove_prefix(found + c_lineEnd.size());
    }
}

/// The cells of a report: those of the summary, and those of the results with the statistics below them.
struct SReportCells {
    CGridBaseOutputCtrl::CCells summary;
    CGridBaseOutputCtrl::CCells results;

    /// Collects from up to three grids, each of which may be null.
    SReportCells(const CGridBaseOutputCtrl* summaryGrid, const CGridBaseOutputCtrl* resultsGrid,
                 const CGridBaseOutputCtrl* statisticsGrid, bool transpose);
    bool HasBoth() const { return !summary.empty() && !results.empty(); }
    bool HasNone() const { return summary.empty() && results.empty(); }
};

} // namespace CommonUI::Detail
