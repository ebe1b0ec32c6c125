#include "controls/lists/ExtendedList.h"

#include "controls/lists/SearchWords.h"
#include "controls/lists/TextOrder.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace CommonUI
{

namespace
{

const SExtendedCell& GetCell(const SExtendedRow& row, std::size_t column)
{
    static const SExtendedCell empty;
    return column < row.cells.size() ? row.cells[column] : empty;
}

bool HasValue(const SExtendedCell& cell, bool isNumber)
{
    return isNumber ? cell.number && !std::isnan(*cell.number) : !cell.text.IsEmpty();
}

// The texts of the cells, apart so that no word is found across two.
CStr JoinFolded(const SExtendedRow& row)
{
    CStr joined;
    for (const SExtendedCell& cell : row.cells)
        joined += ToSmall(cell.text.View()) + u'\n';
    return joined;
}

} // namespace

CExtendedList::CExtendedList() = default;

CExtendedList::~CExtendedList() = default;

void CExtendedList::SetColumns(std::vector<SExtendedColumn> columns)
{
    m_columns = std::move(columns);
    m_order.reset();
    SetRows({});
}

void CExtendedList::SetRows(std::vector<SExtendedRow> rows)
{
    m_rows = std::move(rows);
    m_searched.clear();
    Sort();
}

const CStr& CExtendedList::GetText(std::size_t row, std::size_t column) const
{
    return GetCell(m_rows[row], column).text;
}

void CExtendedList::SetOrder(const std::optional<SExtendedOrder>& order)
{
    m_order = order && order->column < m_columns.size() ? order : std::nullopt;
    Sort();
}

void CExtendedList::CycleOrder(std::size_t column)
{
    if (!m_order || m_order->column != column)
        SetOrder(SExtendedOrder{column, false});
    else if (!m_order->descending)
        SetOrder(SExtendedOrder{column, true});
    else
        SetOrder(std::nullopt);
}

bool CExtendedList::Precedes(std::size_t one, std::size_t other) const
{
    const SExtendedCell& first = GetCell(m_rows[one], m_order->column);
    const SExtendedCell& second = GetCell(m_rows[other], m_order->column);
    const bool isNumber = m_columns[m_order->column].isNumber;
    const bool hasSecond = HasValue(second, isNumber);
    if (!HasValue(first, isNumber) || !hasSecond)
        return HasValue(first, isNumber) && !hasSecond;
    const auto& [less, more] = m_order->descending ? std::tie(second, first) : std::tie(first, second);
    return isNumber ? *less.number < *more.number : std::is_lt(CompareNatural(less.text, more.text));
}

void CExtendedList::Sort()
{
    m_sorted.resize(m_rows.size());
    std::iota(m_sorted.begin(), m_sorted.end(), 0);
    if (m_order)
        std::ranges::stable_sort(m_sorted,
                                 [this](std::size_t one, std::size_t other) { return Precedes(one, other); });
    Find();
}

void CExtendedList::SetFilter(const CStr& text)
{
    m_filter = text;
    Find();
}

void CExtendedList::Find()
{
    const CSearchWords words(m_filter);
    if (!words.IsEmpty() && m_searched.empty())
        std::ranges::transform(m_rows, std::back_inserter(m_searched), JoinFolded);
    m_found.clear();
    std::ranges::copy_if(m_sorted, std::back_inserter(m_found),
                         [&](std::size_t row) { return words.IsEmpty() || words.AreIn(m_searched[row]); });
    BuildLines();
}

void CExtendedList::SetGrouped(bool grouped)
{
    m_grouped = grouped;
    BuildLines();
}

void CExtendedList::FoldGroup(const CStr& group, bool fold)
{
    if (fold)
        m_folded.insert(group);
    else
        m_folded.erase(group);
    BuildLines();
}

void CExtendedList::BuildLines()
{
    m_lines.clear();
    if (m_grouped)
        AppendGroups();
    else
        std::ranges::transform(m_found, std::back_inserter(m_lines),
                               [](std::size_t row) { return SExtendedLine{row}; });
    m_linesChanged.Invoke();
}

void CExtendedList::AppendGroups()
{
    std::unordered_map<CStr, std::size_t> numbers;
    std::vector<std::vector<std::size_t>> groups;
    for (const std::size_t row : m_found) {
        const auto [place, isNew] = numbers.try_emplace(m_rows[row].group, groups.size());
        if (isNew)
            groups.emplace_back();
        groups[place->second].push_back(row);
    }
    for (const auto& rows : groups) {
        m_lines.push_back({rows.front(), rows.size()});
        if (!IsFolded(m_rows[rows.front()].group))
            for (const std::size_t row : rows)
                m_lines.push_back({row});
    }
}

void CExtendedList::Check(std::size_t row, bool checked)
{
    if (row < m_rows.size() && std::exchange(m_rows[row].checked, checked) != checked)
        m_checksChanged.Invoke();
}

void CExtendedList::CheckShown(bool checked, const CStr* group)
{
    bool isOther = false;
    for (const std::size_t row : m_found)
        if (!group || m_rows[row].group == *group)
            isOther |= std::exchange(m_rows[row].checked, checked) != checked;
    if (isOther)
        m_checksChanged.Invoke();
}

std::optional<bool> CExtendedList::IsGroupChecked(const CStr& group) const
{
    std::size_t rows = 0;
    std::size_t checked = 0;
    for (const std::size_t row : m_found)
        if (m_rows[row].group == group) {
            ++rows;
            checked += m_rows[row].checked ? 1 : 0;
        }
    return checked > 0 && checked < rows ? std::nullopt : std::optional(rows > 0 && checked == rows);
}

std::size_t CExtendedList::GetCheckedCount() const
{
    return static_cast<std::size_t>(std::ranges::count(m_rows, true, &SExtendedRow::checked));
}

} // namespace CommonUI
