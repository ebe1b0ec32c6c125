#include "common/TextBuilder.h"
#include "output/results/detail/ResultPieces.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/ProfileText.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace CommonUI
{

namespace
{

using CRow = CGridBaseOutputCtrl::CRow;
using CCells = CGridBaseOutputCtrl::CCells;
using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

// Writes one physical line of a row, whose texts `textOf` gives by the index of the cell.
template<class FTextOf>
void AppendLine(CTextBuilder& text, const CRow& row, FTextOf textOf)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i != 0 && row[i].columnSpan >= 1)
            text.Append(u'\t', textOf(i));
        else
            text += textOf(i);
    }
    text += c_lineEnd;
}

void AppendWrappedRow(CTextBuilder& text, const CRow& row)
{
    std::vector<std::vector<std::u16string_view>> pieces(row.size());
    std::size_t lines = 1;
    for (std::size_t i = 0; i < row.size(); ++i) {
        ForEachPiece(row[i].text, [&](std::u16string_view piece) { pieces[i].push_back(piece); });
        lines = std::max(lines, pieces[i].size());
    }
    for (std::size_t line = 0; line < lines; ++line) {
        AppendLine(text, row, [&](std::size_t i) {
            return line < pieces[i].size() ? pieces[i][line] : std::u16string_view();
        });
    }
}

void AppendRow(CTextBuilder& text, const CRow& row)
{
    if (std::ranges::any_of(row, [](const SCellInfo& cell) { return HasReturn(cell.text); }))
        AppendWrappedRow(text, row);
    else
        AppendLine(text, row, [&row](std::size_t i) { return row[i].text.View(); });
}

void AppendSummary(CTextBuilder& text, const CCells& cells)
{
    for (const CRow& row : cells) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            for (std::int32_t level = 0; level < row[i].indent; ++level)
                text += u"   ";
            text += row[i].text;
            if (i + 2 == row.size())
                text += u": ";
        }
        text += c_lineEnd;
    }
}

void AppendResults(CTextBuilder& text, const CCells& cells)
{
    CRowRoom room(text, cells.size());
    for (const CRow& row : cells) {
        AppendRow(text, row);
        room.RowDone();
    }
}

} // namespace

SReportCells::SReportCells(const CGridBaseOutputCtrl* summaryGrid, const CGridBaseOutputCtrl* resultsGrid,
                           const CGridBaseOutputCtrl* statisticsGrid, bool transpose,
                           const SNumberProfile& profile)
{
    const bool exact = profile.kind == ENumberProfile::Machine;
    if (summaryGrid)
        summaryGrid->GetGridCells(summary, SCellInfo::Summary, exact);
    if (resultsGrid) {
        resultsGrid->GetGridHeaders(results, SCellInfo::Results, exact);
        resultsGrid->GetGridCells(results, SCellInfo::Results, exact);
    }
    if (statisticsGrid) {
        if (!resultsGrid)
            statisticsGrid->GetGridHeaders(results, SCellInfo::Statistics, exact);
        statisticsGrid->GetGridCells(results, SCellInfo::Statistics, exact);
    }
    ConvertTexts(summary, profile);
    ConvertCells(results, profile);
    if (transpose)
        CGridBaseOutputCtrl::TransposeCells(results);
}

CStr SReportCells::MakeText(const SNumberProfile& profile) const
{
    const bool isShown = profile.kind == ENumberProfile::Shown;
    CTextBuilder text;
    if (isShown)
        AppendSummary(text, summary);
    else
        text += GenerateProfileText(summary, profile).View();
    if (HasBoth())
        text += c_lineEnd;
    if (isShown)
        AppendResults(text, results);
    else
        text += GenerateProfileText(results, profile).View();
    return text.Take();
}

CStr CGridBaseOutputCtrl::GenerateSummaryText(const CCells& cells)
{
    CTextBuilder text;
    AppendSummary(text, cells);
    return text.Take();
}

CStr CGridBaseOutputCtrl::GenerateResultsText(const CCells& cells)
{
    CTextBuilder text;
    AppendResults(text, cells);
    return text.Take();
}

CStr CGridBaseOutputCtrl::GenerateText(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                                       const CGridBaseOutputCtrl* statistics, bool transpose)
{
    return SReportCells(summary, results, statistics, transpose).MakeText();
}

} // namespace CommonUI
