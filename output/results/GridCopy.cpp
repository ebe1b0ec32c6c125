#include "output/results/GridCopy.h"

#include "output/results/detail/ResultPieces.h"
#include "output/results/ProfileText.h"

namespace CommonUI
{

using CGrid = CGridBaseOutputCtrl;

bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
               const CGridBaseOutputCtrl* statistics, bool transpose, CClipboard& clipboard)
{
    return CopyGrids(summary, results, statistics, transpose, SNumberProfile(), clipboard);
}

bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
               const CGridBaseOutputCtrl* statistics, bool transpose, const SNumberProfile& profile,
               CClipboard& clipboard)
{
    CReportRows rows(summary, results, statistics, transpose, profile);
    if (rows.HasNone())
        return false;
    return clipboard.Put(rows.MakeHtml(false), rows.MakeText(profile));
}

bool CopyGrid(const CGridBaseOutputCtrl& grid, bool transpose, CClipboard& clipboard)
{
    using SCellInfo = CGridBaseOutputCtrl::SCellInfo;
    const auto ofType = [&grid](SCellInfo::ECellType type) {
        return grid.GetType() == type ? &grid : nullptr;
    };
    return CopyGrids(ofType(SCellInfo::Summary), ofType(SCellInfo::Results), ofType(SCellInfo::Statistics),
                     transpose, clipboard);
}

bool CopySelection(const CGridBaseOutputCtrl& grid, bool transpose, bool headers, CClipboard& clipboard)
{
    return CopySelection(grid, transpose, headers, SNumberProfile(), clipboard);
}

bool CopySelection(const CGridBaseOutputCtrl& grid, bool transpose, bool headers,
                   const SNumberProfile& profile, CClipboard& clipboard)
{
    const CGrid::SCopiedTexts texts = grid.CopySelectionAsHTML(transpose, headers, profile);
    return !texts.html.IsEmpty() && clipboard.Put(texts.html, texts.text);
}

} // namespace CommonUI
