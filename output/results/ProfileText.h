#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "GridBaseOutputCtrl.h"
#include "NumberProfile.h"

#include <string_view>

/// @file
/// Tables for spreadsheet programs and for machines. Tables as they are shown stay what they are.

namespace CommonUI
{

/// Gives the texts of cells the form that the profile asks for, in place. Texts of several lines become one
/// line. For a spreadsheet program the numbers among the cells, headers of rows and columns aside, get its
/// decimal sign, and a text that begins with = + - @, or with a character of control, gets an apostrophe in
/// front: nothing of it is run as a formula.
COMMONUI_API void ConvertCells(CGridBaseOutputCtrl::CCells& cells, const SNumberProfile& profile);
/// The same for cells that are all texts, such as those of a summary: only the apostrophe.
COMMONUI_API void ConvertTexts(CGridBaseOutputCtrl::CCells& cells, const SNumberProfile& profile);

/// Cells that were converted as lines of text that end in CR LF, in quotation marks where they need them
/// (RFC 4180). A cell over several columns is followed by empty ones, so that all stand in their columns.
/// Shown cells become the text of CGridBaseOutputCtrl::GenerateResultsText.
COMMONUI_API CStr GenerateProfileText(const CGridBaseOutputCtrl::CCells& cells,
                                      const SNumberProfile& profile);

/// Up to three grids, each of which may be null: the summary, then results and statistics as one table, below
/// an empty line.
COMMONUI_API CStr GenerateProfileText(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                                      const CGridBaseOutputCtrl* statistics, bool transpose,
                                      const SNumberProfile& profile);

/// One cell converted and in quotation marks where it needs them. Shown cells stand as they are.
COMMONUI_API CStr GenerateProfileCell(const CGridBaseOutputCtrl::SCellInfo& cell,
                                      const SNumberProfile& profile);

/// One cell for a file whose cells a character separates: in quotation marks where the text holds one, the
/// separator or the end of a line.
COMMONUI_API CStr QuoteCell(std::u16string_view text, char16_t separator);

} // namespace CommonUI
