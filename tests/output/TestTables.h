#pragma once

#include "output/results/GridBaseOutputCtrl.h"

#include <string>

namespace CommonUI
{

using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;
using CCells = CGrid::CCells;

constexpr std::uint32_t c_corner = SCell::ColumnHeader | SCell::RowHeader;

inline SCell Cell(const char16_t* text, std::uint32_t flags = 0, int columnSpan = 1, int indent = 0)
{
    return {.text = text, .columnSpan = columnSpan, .indent = indent, .flags = flags};
}

/// A group row, a header row with a wrapped name, a row of units, two body rows.
inline CCells SampleTable()
{
    return {
        {Cell(u"", c_corner), Cell(u"Height", SCell::ColumnHeader | SCell::MergedHeader, 2),
         Cell(u"", SCell::ColumnHeader)},
        {Cell(u"Line", c_corner), Cell(u"Ra", SCell::ColumnHeader), Cell(u"R\r\nq", SCell::ColumnHeader),
         Cell(u"RSm", SCell::ColumnHeader)},
        {Cell(u"", SCell::SubHeader | SCell::RowHeader), Cell(u"nm", SCell::SubHeader),
         Cell(u"nm", SCell::SubHeader), Cell(u"µm", SCell::SubHeader)},
        {Cell(u"1", SCell::RowHeader), Cell(u"1.5"), Cell(u"1.9"), Cell(u"7")},
        {Cell(u"Mean", SCell::RowHeader), Cell(u"2.5"), Cell(u"", 0x100), Cell(u"")},
    };
}

/// The cells as readable lines: text, spans where not 1, flags where not 0.
inline std::string Describe(const CCells& cells)
{
    std::string lines;
    for (const CGrid::CRow& row : cells) {
        for (const SCell& cell : row) {
            lines += "[" + cell.text.ToUtf8();
            if (cell.columnSpan != 1 || cell.rowSpan != 1)
                lines += " " + std::to_string(cell.columnSpan) + "x" + std::to_string(cell.rowSpan);
            if (cell.flags != 0)
                lines += " #" + CStr::Format(u"%x", cell.flags).ToUtf8();
            lines += "]";
        }
        lines += "\n";
    }
    return lines;
}

} // namespace CommonUI
