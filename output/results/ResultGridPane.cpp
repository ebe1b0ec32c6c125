#include "output/results/ResultGridPane.h"

#include "output/results/detail/ResultPieces.h"
#include "output/results/GridCopy.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

constexpr int c_defaultWidth = 80;
constexpr int c_padding = 2 * CGridPane::c_margin;

std::vector<CStr> LinesOf(const CStr& text)
{
    return text.Split(c_lineEnd);
}

} // namespace

CResultGridPane::CResultGridPane(CGridBaseOutputCtrl& grid)
    : m_grid(grid)
{
    Update();
}

CResultGridPane::~CResultGridPane() = default;

void CResultGridPane::Update()
{
    const auto& columns = m_grid.GetColumns();
    m_groupLines = 0;
    std::size_t lines = LinesOf(m_grid.GetNameHeader()).size();
    for (const auto& column : columns) {
        m_groupLines = column.group.IsEmpty() ? m_groupLines : 1;
        lines = std::max(lines, LinesOf(column.header).size());
    }
    m_headerLines = columns.empty() ? 0 : static_cast<int>(lines) + m_groupLines;
    SetHeaderLines(m_headerLines);
    if (m_grid.GetWidth() != GetColumnCount())
        SetColumnWidths(std::vector<int>(m_grid.GetWidth(), c_defaultWidth), IsSummary() ? 0 : 1);
    SetRowCount(m_grid.GetRows().size());
    SetFrozenRows(CountFrozenRows());
    MapSelection();
}

std::size_t CResultGridPane::CountFrozenRows() const
{
    const auto& rows = m_grid.GetRows();
    std::size_t count = 0;
    while (count < std::min(rows.size(), c_frozenRows) && rows[count].subHeader)
        ++count;
    return count;
}

int CResultGridPane::GetFittingWidth(std::size_t column) const
{
    int width = 0;
    const auto fit = [&](std::u16string_view text, int indent) {
        width = std::max(width, GetView()->GetTextWidth(text) + 2 * c_padding + indent);
    };
    if (m_headerLines != 0) {
        for (const CStr& line : GetColumnHeader(column).lines)
            fit(line, 0);
    }
    for (std::size_t row = 0; row < std::min(GetRowCount(), c_fittedRows); ++row) {
        const SShownCell cell = GetCell({row, column});
        fit(cell.text, cell.indent * c_indent);
    }
    return width + GetFittingRoom();
}

void CResultGridPane::FitColumns()
{
    if (!GetView())
        return;
    std::vector<int> widths;
    widths.reserve(GetColumnCount());
    for (std::size_t column = 0; column < GetColumnCount(); ++column)
        widths.push_back(GetFittingWidth(column));
    for (std::size_t column = 1; column < widths.size() && m_groupLines != 0; ++column) {
        if (GetGroup(column).IsEmpty())
            continue;
        const std::size_t last = GetGroupHeader(column).lastColumn;
        int room = 0;
        for (; column < last; ++column)
            room += widths[column];
        const int needed = GetView()->GetTextWidth(GetGroup(last)) + 2 * c_padding;
        widths[last] += std::max(needed - room - widths[last], 0);
    }
    SetColumnWidths(widths, IsSummary() ? 0 : 1);
}

CResultGridPane::SShownCell CResultGridPane::GetCell(SGridCell cell) const
{
    if (cell.row >= m_grid.GetRows().size())
        return {};
    const CGridBaseOutputCtrl::SRow& row = m_grid.GetRows()[cell.row];
    SShownCell shown{.text = m_grid.GetCellText(row, cell.column), .indent = row.indent};
    if (HasReturn(shown.text))
        shown.text = shown.text.Replace(c_lineEnd, u" ");
    const bool header = cell.column == 0 && !IsSummary();
    shown.flags = (row.subHeader ? SCellInfo::SubHeader : 0U) | (header ? SCellInfo::RowHeader : 0U);
    shown.align = header || IsSummary() ? EGridAlign::Left : EGridAlign::Right;
    shown.selected = GetSelection().Contains(cell);
    shown.marked = header && GetSelection().HasRow(cell.row);
    return shown;
}

CStr CResultGridPane::GetToolTip(SGridCell cell) const
{
    const auto& rows = m_grid.GetRows();
    return cell.row < rows.size() ? CGridBaseOutputCtrl::GetCellState(rows[cell.row], cell.column).reason
                                  : CStr();
}

const CStr& CResultGridPane::GetGroup(std::size_t column) const
{
    static const CStr none;
    const bool exists = column != 0 && column <= m_grid.GetColumns().size();
    return exists ? m_grid.GetColumns()[column - 1].group : none;
}

CResultGridPane::SShownHeader CResultGridPane::GetColumnHeader(std::size_t column) const
{
    SShownHeader header{.firstColumn = column, .lastColumn = column};
    if (column == 0)
        header.lines = LinesOf(m_grid.GetNameHeader());
    else if (column <= m_grid.GetColumns().size())
        header.lines = LinesOf(m_grid.GetColumns()[column - 1].header);
    header.flags = SCellInfo::ColumnHeader | (column == 0 ? SCellInfo::RowHeader : 0U);
    // A column without a group has the room of one for its own header.
    header.firstLine = GetGroup(column).IsEmpty() ? 0 : m_groupLines;
    header.lineCount = m_headerLines - header.firstLine;
    header.align = column == 0 ? EGridAlign::Left : EGridAlign::Right;
    header.marked = GetSelection().HasColumn(column);
    return header;
}

CStr CResultGridPane::SpeakHeader(std::size_t column) const
{
    CStr spoken = GetGroup(column);
    for (const CStr& line : GetColumnHeader(column).lines) {
        if (!spoken.IsEmpty() && !line.IsEmpty())
            spoken += u' ';
        spoken += line;
    }
    return spoken;
}

CResultGridPane::SShownHeader CResultGridPane::GetGroupHeader(std::size_t column) const
{
    SShownHeader header{.lines = {GetGroup(column)}, .firstColumn = column, .lastColumn = column};
    while (GetGroup(header.firstColumn - 1) == GetGroup(column))
        --header.firstColumn;
    while (header.lastColumn + 1 < GetColumnCount() && GetGroup(header.lastColumn + 1) == GetGroup(column))
        ++header.lastColumn;
    header.flags = SCellInfo::ColumnHeader | SCellInfo::MergedHeader;
    if (header.lastColumn != header.firstColumn)
        header.align = EGridAlign::Center;
    return header;
}

std::vector<CResultGridPane::SShownHeader> CResultGridPane::GetHeaders(std::size_t first,
                                                                       std::size_t last) const
{
    std::vector<SShownHeader> headers;
    if (m_headerLines == 0)
        return headers;
    headers.reserve(2 * (last - first + 1));
    for (std::size_t column = first; column <= last; ++column) {
        const bool sameGroup = column != first && GetGroup(column) == GetGroup(column - 1);
        if (!GetGroup(column).IsEmpty() && !sameGroup)
            headers.push_back(GetGroupHeader(column));
        headers.push_back(GetColumnHeader(column));
    }
    return headers;
}

void CResultGridPane::DrawCell(CGridPainter& painter, SGridCell cell, const SRect& rect) const
{
    const SShownCell shown = GetCell(cell);
    if (shown.selected)
        painter.FillBackground(rect, EGridBackground::Selected);
    else if ((shown.flags & SCellInfo::RowHeader) != 0)
        painter.FillBackground(rect, shown.marked ? EGridBackground::MarkedHeader : EGridBackground::Header);
    else
        painter.FillBackground(rect, (shown.flags & SCellInfo::SubHeader) != 0 ? EGridBackground::SubHeader
                                                                               : EGridBackground::Plain);
    SRect place = rect.Shrunk(c_padding, 0);
    place.left += shown.indent * c_indent;
    if (shown.text.IsEmpty() || place.IsEmpty())
        return;
    const CTextColorScope scope(painter, shown.selected ? EGridColor::Selected : EGridColor::Text);
    painter.WriteText(place, shown.text, shown.align);
}

void CResultGridPane::DrawHeader(CGridPainter& painter, std::size_t first, std::size_t last) const
{
    const CTextColorScope scope(painter, EGridColor::Text);
    for (const SShownHeader& header : GetHeaders(first, last)) {
        const int top = header.firstLine * GetLineHeight();
        const bool toEnd = header.firstLine + header.lineCount == m_headerLines;
        const SRect rect{GetCellRect({0, header.firstColumn}).left,
                         header.firstLine == 0 ? 0 : top + c_margin,
                         GetCellRect({0, header.lastColumn}).right,
                         toEnd ? GetHeaderHeight() : top + header.lineCount * GetLineHeight() + c_margin};
        painter.FillBackground(rect, header.marked ? EGridBackground::MarkedHeader : EGridBackground::Header);
        const int empty = header.lineCount - static_cast<int>(header.lines.size());
        SRect line{rect.left + c_padding, top + empty * GetLineHeight() + c_margin, rect.right - c_padding,
                   0};
        for (const CStr& text : header.lines) {
            line.bottom = line.top + GetLineHeight();
            if (!text.IsEmpty() && !line.IsEmpty())
                painter.WriteText(line, text, header.align);
            line.top = line.bottom;
        }
    }
}

void CResultGridPane::OnSelectionChanged()
{
    MapSelection();
}

void CResultGridPane::MapSelection()
{
    if (GetSelection().IsEmpty())
        m_grid.ClearSelection();
    else
        m_grid.Select(GetSelection().GetRange());
}

bool CResultGridPane::OnKey(const SGridKey& key)
{
    if (key.key == EGridKey::C && key.modifiers.control)
        return CopySelection(m_grid, false, true);
    return CGridPane::OnKey(key);
}

} // namespace CommonUI
