#include "output/results/GridCopy.h"

#include "common/StringTable.h"
#include "output/results/detail/ResultPieces.h"
#include "output/results/ProfileText.h"
#include "platform/MessageBoxService.h"

#include <new>
#include <stdexcept>

namespace CommonUI
{

namespace
{

using CGrid = CGridBaseOutputCtrl;

constexpr int c_noMemoryText = 12241;

// What a copy of a table gives, or false where it is too large for this process, which is told.
template<class FCopy>
bool CopyOrTell(FCopy copy)
{
    try {
        return copy();
    } catch (const std::bad_alloc&) { // with what was there of the texts
    } catch (const std::length_error&) {
    }
    GetMessageBoxService().Show(
        {GetString(c_noMemoryText), MessageBoxStyle::c_ok | MessageBoxStyle::c_error});
    return false;
}

} // namespace

bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
               const CGridBaseOutputCtrl* statistics, bool transpose, CClipboard& clipboard)
{
    return CopyGrids(summary, results, statistics, transpose, SNumberProfile(), clipboard);
}

bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
               const CGridBaseOutputCtrl* statistics, bool transpose, const SNumberProfile& profile,
               CClipboard& clipboard)
{
    return CopyOrTell([&] {
        CReportRows rows(summary, results, statistics, transpose, profile);
        return !rows.HasNone() && clipboard.Put(rows.MakeHtml(false), rows.MakeText(profile));
    });
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
    return CopyOrTell([&] {
        const CGrid::SCopiedTexts texts = grid.CopySelectionAsHTML(transpose, headers, profile);
        return !texts.html.IsEmpty() && clipboard.Put(texts.html, texts.text);
    });
}

} // namespace CommonUI
