#pragma once

namespace CommonUI
{

/// For whom the numbers of a table are written.
enum class ENumberProfile {
    Shown,       ///< as the table shows them
    Spreadsheet, ///< for a spreadsheet program, which runs what looks like a formula
    Machine      ///< keys, base units and as many digits as give the same number back
};

/// How the numbers of a table are written and its cells are separated.
struct SNumberProfile {
    ENumberProfile kind = ENumberProfile::Shown; ///< decides what is written; the rest says how
    char16_t separator = u'\t'; ///< between the cells of a line: a tab, a comma or a semicolon
    /// The sign in front of decimals that a spreadsheet program expects; the others have a point.
    char16_t decimal = u'.';
};

} // namespace CommonUI
