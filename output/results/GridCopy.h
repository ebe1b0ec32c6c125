#pragma once

#include "../../export/Export.h"
#include "../../platform/Clipboard.h"
#include "GridBaseOutputCtrl.h"

namespace CommonUI
{

/// Puts the text and the HTML of up to three grids, each of which may be null, on the clipboard together.
/// @param transpose whether results and statistics are turned through 90 degrees
/// @return false when there is nothing to copy, or no memory for its texts, which a message box tells; both
///         leave the clipboard alone; or the clipboard refuses
COMMONUI_API bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                            const CGridBaseOutputCtrl* statistics, bool transpose,
                            CClipboard& clipboard = GetClipboard());
/// Likewise.
/// @param profile how the numbers are written
COMMONUI_API bool CopyGrids(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                            const CGridBaseOutputCtrl* statistics, bool transpose,
                            const SNumberProfile& profile, CClipboard& clipboard = GetClipboard());

/// As CopyGrids with one grid, of whichever type, as reports have it.
COMMONUI_API bool CopyGrid(const CGridBaseOutputCtrl& grid, bool transpose,
                           CClipboard& clipboard = GetClipboard());

/// Puts the text and the HTML of a grid's selected cells on the clipboard together.
/// @param headers whether the headers of their columns go with them
/// @return likewise
COMMONUI_API bool CopySelection(const CGridBaseOutputCtrl& grid, bool transpose, bool headers,
                                CClipboard& clipboard = GetClipboard());
/// Likewise.
/// @param profile how the numbers are written
COMMONUI_API bool CopySelection(const CGridBaseOutputCtrl& grid, bool transpose, bool headers,
                                const SNumberProfile& profile, CClipboard& clipboard = GetClipboard());

} // namespace CommonUI
