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
    Unit = 11612,
    Format = 11613,
    Hide = 11614,
    Show = 11615,
    ShowAll = 11617,
    AsShown = 11621, ///< the other two profiles follow
    Everything = 11624,
    Spreadsheet = 11625,
    Separator = 11627,
    Decimal = 11628,
    Tab = 11630,        ///< comma and semicolon follow
    Point = 11634,      ///< the comma follows
    File = 11637,       ///< of the first kind of files; the others follow
    NotWritten = 11643, ///< with the file's name and the reason
    Page = 11644,       ///< with the page and how many there are
    UnitName = 11645,
    StatisticsName = 11646,
    Close = 11647,
    Reasons = 11648,
    TooManyRows = 11649, ///< with how many may be transposed
    NotPrinted = 11650,
    NotDrawn = 11651, ///< why there is no file
    Taller = 11832,
    Shorter = 11833,
};

/// @param following how many texts behind that one, where it is the first of several
COMMONUI_API CStr GetResultText(EResultText text, int following = 0);

} // namespace CommonUI
