#include "output/results/GridCopy.h"

namespace CommonUI
{

bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
               const CGridBaseOutputCtrl* statistics, bool transpose, CClipboard& clipboard)
{
    const CStr html = CGridBaseOutputCtrl::GenerateHTMLTables(summary, results, statistics, transpose);
    if (html.IsEmpty())
        return false;
    return clipboard.Put(html, CGridBaseOutputCtrl::GenerateText(summary, results, statistics, transpose));
}

bool CopySelection(const CGridBaseOutputCtrl& grid, bool transpose, bool headers, CClipboard& clipboard)
{
    const CGridBaseOutputCtrl::SCopiedTexts texts = grid.CopySelectionAsHTML(transpose, headers);
    return !texts.html.IsEmpty() && clipboard.Put(texts.html, texts.text);
}

} // namespace CommonUI
