#include "output/results/GridBaseOutputCtrl.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace CommonUI
{

namespace
{

using CRow = CGridBaseOutputCtrl::CRow;
using CCells = CGridBaseOutputCtrl::CCells;
using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

// The columns that a cell takes: none for one that is covered by another.
std::size_t ColumnsOf(const SCellInfo& cell)
{
    return static_cast<std::size_t>(std::max(cell.columnSpan, 0));
}

std::size_t WidthOf(const CCells& cells)
{
    std::size_t width = 0;
    for (const CRow& row : cells) {
        width = std::max(
            width, std::accumulate(row.begin(), row.end(), std::size_t{0},
                                   [](std::size_t sum, const auto& cell) { return sum + ColumnsOf(cell); }));
    }
    return width;
}

// A header of a column becomes one of a row and the other way round.
std::uint32_t TurnedFlags(std::uint32_t flags)
{
    constexpr std::uint32_t c_both = SCellInfo::ColumnHeader | SCellInfo::RowHeader;
    const bool column = (flags & SCellInfo::ColumnHeader) != 0;
    const bool row = (flags & SCellInfo::RowHeader) != 0;
    return (flags & ~c_both) | (row ? SCellInfo::ColumnHeader : 0U) | (column ? SCellInfo::RowHeader : 0U);
}

SCellInfo Turned(const SCellInfo& cell)
{
    SCellInfo turned = cell;
    if (cell.Has(SCellInfo::ColumnHeader))
        turned.text = cell.text.Replace(u"\r\n", u" ");
    std::swap(turned.columnSpan, turned.rowSpan);
    turned.flags = TurnedFlags(cell.flags);
    return turned;
}

CCells TurnRows(const CCells& cells, std::size_t first, std::size_t width)
{
    CCells turned(width);
    for (std::size_t row = first; row < cells.size(); ++row) {
        std::size_t position = 0;
        for (const SCellInfo& cell : cells[row]) {
            // A covered cell at the end of its row stays with the last column.
            if (width != 0)
                turned[std::min(position, width - 1)].push_back(Turned(cell));
            position += ColumnsOf(cell);
        }
    }
    return turned;
}

SCellInfo TurnedGroup(const SCellInfo& group, std::size_t rowCount)
{
    SCellInfo cell = group;
    cell.rowSpan = 1;
    cell.columnSpan = static_cast<std::int32_t>(rowCount);
    cell.flags &= ~std::uint32_t{SCellInfo::ColumnHeader};
    return cell;
}

// Puts the name of every group in front of the rows that its columns have become.
CCells WithGroups(CCells turned, const CRow& groups, std::size_t rowCount)
{
    const auto isHeader = [](const CRow& row) {
        return !row.empty() && row.front().Has(SCellInfo::ColumnHeader);
    };
    const auto firstBody =
        static_cast<std::size_t>(std::ranges::find_if_not(turned, isHeader) - turned.begin());
    CCells all;
    all.reserve(turned.size() + groups.size());
    std::size_t position = 0;
    std::size_t done = 0;
    const auto takeUntil = [&](std::size_t end) {
        for (; done < end; ++done)
            all.push_back(std::move(turned[done]));
    };
    for (const SCellInfo& group : groups) {
        if (group.columnSpan > 1) {
            takeUntil(std::min(std::max(position, firstBody), turned.size()));
            all.push_back({TurnedGroup(group, rowCount)});
        }
        position += ColumnsOf(group);
    }
    takeUntil(turned.size());
    return all;
}

} // namespace

void CGridBaseOutputCtrl::TransposeCells(CCells& cells)
{
    const std::size_t width = WidthOf(cells);
    const bool hasGroups = cells.size() > 1 && cells[0].size() < cells[1].size();
    const std::size_t first = hasGroups ? 1 : 0;
    CCells turned = TurnRows(cells, first, width);
    if (hasGroups)
        turned = WithGroups(std::move(turned), cells[0], cells.size() - first);
    cells = std::move(turned);
}

} // namespace CommonUI
