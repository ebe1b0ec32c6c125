#include "output/results/GridBaseOutputCtrl.h"

#include "common/Diagnostics.h"
#include "common/NumberText.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace CommonUI
{

namespace
{

using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

SCellInfo MakeCell(const CStr& text, std::uint32_t flags, std::int32_t columnSpan = 1)
{
    return {.text = text, .columnSpan = columnSpan, .flags = flags};
}

// The next token of `rest`, which moves behind it; empty at the end.
std::u16string_view NextToken(std::u16string_view& rest, std::u16string_view delimiters)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(delimiters), rest.size()));
    const std::u16string_view token = rest.substr(0, rest.find_first_of(delimiters));
    rest.remove_prefix(token.size());
    return token;
}

// What machines get in place of what is shown.
void PutExact(CGridBaseOutputCtrl::CRow& cells, const CGridBaseOutputCtrl::SRow& row)
{
    for (std::size_t i = 0; i < row.values.size() && i + 1 < cells.size(); ++i) {
        if (std::isfinite(row.values[i]))
            cells[i + 1].text = ShortestText(row.values[i]);
    }
    for (const CGridBaseOutputCtrl::SExactText& exact : row.exactTexts) {
        if (exact.column < cells.size())
            cells[exact.column].text = exact.text;
    }
}

} // namespace

void CGridBaseOutputCtrl::AddRow(SRow row)
{
    m_longestRow = std::max(m_longestRow, row.cells.size());
    m_rows.push_back(std::move(row));
}

void CGridBaseOutputCtrl::Clear()
{
    m_nameHeader.Clear();
    m_exactNameHeader.Clear();
    m_columns.clear();
    m_rows.clear();
    m_longestRow = 0;
    ClearSelection();
}

bool CGridBaseOutputCtrl::InsertTokenizableRow(const CStr& line, const CStr& delimiters, bool subHeader,
                                               bool atTop, unsigned long data)
{
    std::u16string_view rest = line;
    const std::u16string_view name = NextToken(rest, delimiters);
    if (name.empty())
        return false;
    SRow row{.name = name, .cells = {}, .subHeader = subHeader, .data = data};
    for (auto token = NextToken(rest, delimiters); !token.empty(); token = NextToken(rest, delimiters))
        row.cells.emplace_back(TrimView(token).empty() ? std::u16string_view() : token);
    if (m_type != SCellInfo::Summary && row.cells.size() > m_columns.size()) {
        GetDiagnostics().Write(u"ResultGrid", EDiagnosticLevel::Warning,
                               CStr::Format(u"Row \"%s\" has %d cells for %d columns", row.name,
                                            row.cells.size(), m_columns.size()));
    }
    m_longestRow = std::max(m_longestRow, row.cells.size());
    if (atTop)
        m_rows.push_front(std::move(row));
    else
        m_rows.push_back(std::move(row));
    return true;
}

// NOLINTBEGIN(performance-unnecessary-value-param): the signature that callers know
void CGridBaseOutputCtrl::AddResultsToGrid(const SEndResultCollection* collection,
                                           std::vector<int> blankColumns)
// NOLINTEND(performance-unnecessary-value-param)
{
    if (!collection)
        return;
    for (const SEndResultItem& item : collection->GetResultsVector())
        InsertTokenizableRow(item.CreateTokenizableString(blankColumns, GetColumnCount()), u"\t");
}

// The names of the groups, each over its columns; columns without a group have an empty cell of their own.
CGridBaseOutputCtrl::CRow CGridBaseOutputCtrl::GroupRow(bool exact) const
{
    CRow row{MakeCell(CStr(), SCellInfo::ColumnHeader | SCellInfo::RowHeader)};
    const SColumn* previous = nullptr;
    for (const SColumn& column : m_columns) {
        if (column.group.IsEmpty())
            row.push_back(MakeCell(CStr(), SCellInfo::ColumnHeader));
        else if (previous && previous->group == column.group)
            ++row.back().columnSpan;
        else
            row.push_back(MakeCell(exact && !column.exactGroup.IsEmpty() ? column.exactGroup : column.group,
                                   SCellInfo::ColumnHeader | SCellInfo::MergedHeader));
        previous = &column;
    }
    return row;
}

CGridBaseOutputCtrl::CRow CGridBaseOutputCtrl::HeaderRow(bool exact) const
{
    // Above the row names stands a header of both a column and the rows, which keeps its place when turned.
    const bool hasExactName = exact && !m_exactNameHeader.IsEmpty();
    CRow row{MakeCell(hasExactName ? m_exactNameHeader : m_nameHeader,
                      SCellInfo::ColumnHeader | SCellInfo::RowHeader)};
    for (const SColumn& column : m_columns) {
        const bool isExact = exact && !column.exactHeader.IsEmpty();
        row.push_back(MakeCell(isExact ? column.exactHeader : column.header, SCellInfo::ColumnHeader));
    }
    return row;
}

CGridBaseOutputCtrl::CRow CGridBaseOutputCtrl::BodyRow(const SRow& row, bool exact) const
{
    // A summary has labels and values, but neither columns nor headers.
    const bool summary = m_type == SCellInfo::Summary;
    const std::size_t count = summary ? row.cells.size() : m_columns.size();
    const std::uint32_t flags = row.subHeader ? SCellInfo::SubHeader : 0U;
    CRow cells;
    cells.reserve(count + 1);
    cells.push_back(MakeCell(row.name, summary ? flags : flags | SCellInfo::RowHeader));
    for (std::size_t i = 0; i < count; ++i)
        cells.push_back(MakeCell(GetCellText(row, i + 1), flags));
    for (SCellInfo& cell : cells)
        cell.indent = row.indent;
    if (exact)
        PutExact(cells, row);
    return cells;
}

void CGridBaseOutputCtrl::GetGridHeaders(CCells& cells, int type, bool exact) const
{
    if (!Delivers(type) || m_columns.empty())
        return;
    const auto hasGroup = [](const SColumn& column) { return !column.group.IsEmpty(); };
    if (std::ranges::any_of(m_columns, hasGroup))
        cells.push_back(GroupRow(exact));
    cells.push_back(HeaderRow(exact));
}

void CGridBaseOutputCtrl::GetGridCells(CCells& cells, int type, bool exact) const
{
    if (!Delivers(type))
        return;
    cells.reserve(cells.size() + m_rows.size());
    for (const SRow& row : m_rows)
        cells.push_back(BodyRow(row, exact));
}

std::size_t CGridBaseOutputCtrl::GetWidth() const noexcept
{
    return (m_type == SCellInfo::Summary ? std::max(m_columns.size(), m_longestRow) : m_columns.size()) + 1;
}

CStr CGridBaseOutputCtrl::GetCellText(const SRow& row, std::size_t column) const
{
    if (column == 0)
        return row.name;
    if (column > row.cells.size())
        return {};
    const CStr& text = row.cells[column - 1];
    if (text.IsEmpty() || row.subHeader || column > m_columns.size() ||
        m_columns[column - 1].formats.IsEmpty())
        return text;
    return m_columns[column - 1].formats.ApplyToText(text);
}

const SValueState& CGridBaseOutputCtrl::GetCellState(const SRow& row, std::size_t column)
{
    static const SValueState value;
    const auto found = std::ranges::find(row.states, column, &SCellState::column);
    return found == row.states.end() ? value : found->state;
}

void CGridBaseOutputCtrl::Select(const SSelection& selection)
{
    m_selection = selection;
    m_hasSelection = !m_rows.empty();
    if (!m_hasSelection)
        return;
    m_selection.lastRow = std::min(selection.lastRow, m_rows.size() - 1);
    m_selection.lastColumn = std::min(selection.lastColumn, GetWidth() - 1);
    m_hasSelection =
        m_selection.firstRow <= m_selection.lastRow && m_selection.firstColumn <= m_selection.lastColumn;
}

void CGridBaseOutputCtrl::SelectAll()
{
    Select({0, m_rows.size(), 0, GetWidth()});
}

void CGridBaseOutputCtrl::ClearSelection()
{
    m_hasSelection = false;
}

void CGridBaseOutputCtrl::GetSelectedCells(CCells& cells, bool headers, bool exact) const
{
    if (!m_hasSelection)
        return;
    const auto cut = [this](const CRow& row) {
        const auto first = std::min(m_selection.firstColumn, row.size());
        const auto last = std::min(m_selection.lastColumn + 1, row.size());
        return CRow(row.begin() + static_cast<std::ptrdiff_t>(first),
                    row.begin() + static_cast<std::ptrdiff_t>(last));
    };
    if (headers && !m_columns.empty()) {
        cells.push_back(cut(HeaderRow(exact)));
        for (SCellInfo& cell : cells.back())
            cell.text = cell.text.Replace(u"\r\n", u" ");
    }
    for (std::size_t row = m_selection.firstRow; row <= m_selection.lastRow; ++row)
        cells.push_back(cut(BodyRow(m_rows[row], exact)));
}

} // namespace CommonUI
