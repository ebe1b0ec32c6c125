#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

namespace CommonUI
{

/// What the result dialog and its panel say, by the numbers of the string table.
enum class EResultText : int {
    Caption = 11601,
    Summary = 11602,
    Results = 11603,
    Statistics = 11604,
    Copy = 11605,
    Save = 11606,
    Print = 11607,
    Transpose = 11608,
    Columns = 11609,
    Notes = 11610,
    Unit = 11611,
    Format = 11612,
    Hide = 11613,
    Show = 11614,
    ShowAll = 11615,
    AsShown = 11616, ///< the other two profiles follow
    Everything = 11619,
    Separator = 11620,  ///< then tab, comma, semicolon
    Decimal = 11624,    ///< then point, comma
    File = 11627,       ///< of the first kind of files; the others follow
    NotWritten = 11632, ///< with the file's name and the reason
    Page = 11633,       ///< with the page and how many there are
    UnitName = 11634,
    StatisticsName = 11635,
    Close = 11636,
    SelectAll = 11637,
    FitColumns = 11638,
    Spreadsheet = 11639,
    Reasons = 11640,
    TooManyRows = 11641, ///< with how many may be transposed
};

/// @param following how many texts behind that one, where it is the first of several
COMMONUI_API CStr GetResultText(EResultText text, int following = 0);

} // namespace CommonUI
