#include "output/results/detail/TableRows.h"

#include <algorithm>

namespace CommonUI
{

using CGrid = CGridBaseOutputCtrl;

namespace
{

void ViewRow(std::vector<SWrittenCell>& views, const CGrid::CRow& row)
{
    views.resize(row.size());
    std::ranges::transform(row, views.begin(), [](const CGrid::SCellInfo& cell) {
        return SWrittenCell{cell.text, cell.columnSpan, cell.rowSpan, cell.indent, cell.flags};
    });
}

} // namespace

void CGridRows::Add(const CGrid& grid)
{
    if (!grid.GetRows().empty())
        Add(grid, {0, grid.GetRows().size() - 1, 0, grid.GetWidth() - 1});
}

void CGridRows::Add(const CGrid& grid, const SGridRange& range)
{
    std::vector<bool> formatted;
    for (const CGrid::SColumn& column : grid.GetColumns())
        formatted.push_back(!column.formats.IsEmpty());
    if (std::ranges::find(formatted, true) == formatted.end())
        formatted.clear();
    else
        m_hasFormats = true;
    m_bodyRows += range.lastRow - range.firstRow + 1;
    m_parts.push_back({&grid, range, std::move(formatted)});
}

CWrittenRow CGridRows::At(std::size_t index)
{
    if (index < m_headers.size()) {
        ViewRow(m_row, m_headers[index]);
        return m_row;
    }
    index -= m_headers.size();
    for (const SPart& part : m_parts) {
        const std::size_t count = part.range.lastRow - part.range.firstRow + 1;
        if (index < count) {
            ViewBody(part, part.grid->GetRows()[part.range.firstRow + index]);
            break;
        }
        index -= count;
    }
    return m_row;
}

void CGridRows::ViewBody(const SPart& part, const CGrid::SRow& row)
{
    const bool summary = part.grid->GetType() == CGrid::SCellInfo::Summary;
    const std::uint32_t flags = row.subHeader ? CGrid::SCellInfo::SubHeader : 0U;
    const std::size_t width = 1 + (summary ? row.cells.size() : part.grid->GetColumns().size());
    const std::size_t end = std::min(part.range.lastColumn + 1, width);
    const std::size_t first = std::min(part.range.firstColumn, end);
    m_row.resize(end - first);
    m_texts.clear();
    m_texts.reserve(part.formatted.size()); // the views point into it
    auto cell = m_row.begin();
    for (std::size_t column = first; column < end; ++column, ++cell)
        *cell = {.text = TextAt(part, row, column), .indent = row.indent, .flags = flags};
    if (first == 0 && !summary)
        m_row.front().flags |= CGrid::SCellInfo::RowHeader;
}

std::u16string_view CGridRows::TextAt(const SPart& part, const CGrid::SRow& row, std::size_t column)
{
    if (column == 0)
        return row.name;
    if (column - 1 < part.formatted.size() && part.formatted[column - 1])
        return m_texts.emplace_back(part.grid->GetCellText(row, column));
    return column <= row.cells.size() ? row.cells[column - 1].View() : std::u16string_view();
}

} // namespace CommonUI
