#include "common/TextBuilder.h"
#include "output/results/detail/ResultPieces.h"
#include "output/results/detail/TableRows.h"
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
template<class TRow, class FTextOf>
void AppendLine(CTextBuilder& text, const TRow& row, FTextOf textOf)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i != 0 && row[i].columnSpan >= 1)
            text.Append(u'\t', textOf(i));
        else
            text += textOf(i);
    }
    text += c_lineEnd;
}

template<class TRow>
void AppendWrappedRow(CTextBuilder& text, const TRow& row)
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

template<class TRow>
void AppendRow(CTextBuilder& text, const TRow& row)
{
    if (std::ranges::any_of(row, [](const auto& cell) { return HasReturn(cell.text); }))
        AppendWrappedRow(text, row);
    else
        AppendLine(text, row, [&row](std::size_t i) -> std::u16string_view { return row[i].text; });
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

template<class TRows>
void AppendResults(CTextBuilder& text, TRows& rows)
{
    AppendRows(text, rows, [](CTextBuilder& to, const auto& row, std::size_t) { AppendRow(to, row); });
}

CCells CollectCells(const CGridBaseOutputCtrl* results, const CGridBaseOutputCtrl* statistics, bool exact)
{
    CCells cells;
    if (results) {
        results->GetGridHeaders(cells, SCellInfo::Results, exact);
        results->GetGridCells(cells, SCellInfo::Results, exact);
    }
    if (statistics) {
        if (!results)
            statistics->GetGridHeaders(cells, SCellInfo::Statistics, exact);
        statistics->GetGridCells(cells, SCellInfo::Statistics, exact);
    }
    return cells;
}

void CollectRows(CGridRows& rows, const CGridBaseOutputCtrl* results, const CGridBaseOutputCtrl* statistics)
{
    if (results) {
        results->GetGridHeaders(rows.GetHeaders(), SCellInfo::Results);
        if (results->GetType() == SCellInfo::Results)
            rows.Add(*results);
    }
    if (statistics) {
        if (!results)
            statistics->GetGridHeaders(rows.GetHeaders(), SCellInfo::Statistics);
        if (statistics->GetType() == SCellInfo::Statistics)
            rows.Add(*statistics);
    }
}

} // namespace

CReportRows::CReportRows(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                         const CGridBaseOutputCtrl* statistics, bool transpose, const SNumberProfile& profile)
{
    const bool exact = profile.kind == ENumberProfile::Machine;
    if (summary)
        summary->GetGridCells(m_summary, SCellInfo::Summary, exact);
    ConvertTexts(m_summary, profile);
    if (profile.kind == ENumberProfile::Shown && !transpose) {
        CollectRows(m_rows, results, statistics);
        return;
    }
    m_cells = CollectCells(results, statistics, exact);
    ConvertCells(m_cells, profile);
    if (transpose)
        CGridBaseOutputCtrl::TransposeCells(m_cells);
}

CStr CReportRows::MakeText(const SNumberProfile& profile)
{
    CTextBuilder text;
    const bool hasBoth = !m_summary.empty() && HasResults();
    if (profile.kind != ENumberProfile::Shown) {
        text += GenerateProfileText(m_summary, profile).View();
        if (hasBoth)
            text += c_lineEnd;
        text += GenerateProfileText(m_cells, profile).View();
        return text.Take();
    }
    AppendSummary(text, m_summary);
    if (hasBoth)
        text += c_lineEnd;
    AppendResults(text, m_rows);
    CCellRows cells(m_cells);
    AppendResults(text, cells);
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
    CCellRows rows(cells);
    AppendResults(text, rows);
    return text.Take();
}

CStr CGridBaseOutputCtrl::GenerateText(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                                       const CGridBaseOutputCtrl* statistics, bool transpose)
{
    return CReportRows(summary, results, statistics, transpose).MakeText();
}

} // namespace CommonUI
