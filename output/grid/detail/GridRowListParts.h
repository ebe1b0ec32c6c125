#pragma once

#include "output/grid/GridRow.h"

namespace CommonUI
{

template<class TRow>
std::size_t CGridRowList<TRow>::PlaceOf(const CGridRow& row) const
{
    const Detail::SGridRowPart& known = *CGridRow::PartOf<TRow>(row);
    const std::vector<TRow>& rows = m_parts[known.number]->rows;
    const auto found = std::ranges::find_if(rows, [&row](const TRow& one) { return &*one == &row; });
    return m_starts[known.number] + static_cast<std::size_t>(found - rows.begin());
}

template<class TRow>
void CGridRowList<TRow>::Insert(std::size_t place, TRow row)
{
    CGridRow& inserted = *row;
    const bool isLast = place == m_size;
    if (m_parts.empty() || (isLast && m_parts.back()->rows.size() >= c_most)) {
        auto part = std::make_unique<SPart>();
        part->rows.push_back(std::move(row));
        AddPart(m_parts.size(), std::move(part));
    } else {
        if (SPart& full = PartAt(place); full.rows.size() >= c_most)
            Split(full);
        SPart& part = PartAt(place);
        const std::size_t offset = place - m_starts[part.number];
        part.rows.insert(part.rows.begin() + static_cast<std::ptrdiff_t>(offset), std::move(row));
        CGridRow::PartOf<TRow>(inserted) = &part;
        for (std::size_t i = part.number + 1; i < m_starts.size(); ++i)
            ++m_starts[i];
    }
    ++m_size;
}

template<class TRow>
TRow CGridRowList<TRow>::Take(std::size_t place)
{
    SPart& part = PartAt(place);
    TRow taken = std::move(part.rows[place - m_starts[part.number]]);
    CGridRow::PartOf<TRow>(*taken) = nullptr;
    Cut(place, 1);
    return taken;
}

template<class TRow>
void CGridRowList<TRow>::Erase(std::size_t place, std::size_t count)
{
    if (count == 0)
        return;
    std::size_t number = PartAt(place).number;
    std::size_t offset = place - m_starts[number];
    for (std::size_t i = 0; i < count; ++i, ++offset) {
        if (offset == m_parts[number]->rows.size()) {
            ++number;
            offset = 0;
        }
        CGridRow::PartOf<TRow>(*m_parts[number]->rows[offset]) = nullptr;
    }
    Cut(place, count);
}

// Takes places out of the list, whose rows have been told.
template<class TRow>
void CGridRowList<TRow>::Cut(std::size_t place, std::size_t count)
{
    const std::size_t first = PartAt(place).number;
    std::size_t offset = place - m_starts[first];
    m_size -= count;
    bool hasEmptied = false;
    for (std::size_t number = first; count != 0; ++number, offset = 0) {
        std::vector<TRow>& rows = m_parts[number]->rows;
        const std::size_t here = std::min(count, rows.size() - offset);
        const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(offset);
        rows.erase(begin, begin + static_cast<std::ptrdiff_t>(here));
        for (std::size_t i = number + 1; i < m_starts.size(); ++i)
            m_starts[i] -= here;
        hasEmptied = hasEmptied || rows.empty();
        count -= here;
    }
    if (hasEmptied) {
        std::erase_if(m_parts, [](const auto& part) { return part->rows.empty(); });
        m_starts.resize(m_parts.size());
        CountFrom(first);
    }
}

template<class TRow>
void CGridRowList<TRow>::Clear()
{
    Erase(0, m_size);
}

// Gives the latter half of the rows to a part of its own.
template<class TRow>
void CGridRowList<TRow>::Split(SPart& part)
{
    auto latter = std::make_unique<SPart>();
    const auto half = part.rows.begin() + static_cast<std::ptrdiff_t>(part.rows.size() / 2);
    latter->rows.reserve(c_most);
    MakeRoom();
    latter->rows.assign(std::make_move_iterator(half), std::make_move_iterator(part.rows.end()));
    part.rows.erase(half, part.rows.end());
    AddPart(part.number + 1, std::move(latter));
}

// For one more part: adding it then needs no memory.
template<class TRow>
void CGridRowList<TRow>::MakeRoom()
{
    if (m_parts.size() == m_parts.capacity())
        m_parts.reserve(2 * m_parts.size() + 1);
    if (m_starts.size() == m_starts.capacity())
        m_starts.reserve(2 * m_starts.size() + 1);
}

template<class TRow>
void CGridRowList<TRow>::AddPart(std::size_t number, std::unique_ptr<SPart> part)
{
    MakeRoom();
    SPart& added = *part;
    m_parts.insert(m_parts.begin() + static_cast<std::ptrdiff_t>(number), std::move(part));
    m_starts.push_back(0);
    for (const TRow& row : added.rows)
        CGridRow::PartOf<TRow>(*row) = &added;
    CountFrom(number);
}

template<class TRow>
void CGridRowList<TRow>::TellRows()
{
    for (const auto& part : m_parts)
        for (const TRow& row : part->rows)
            CGridRow::PartOf<TRow>(*row) = part.get();
}

// Numbers the parts from that one on, whose predecessors are right.
template<class TRow>
void CGridRowList<TRow>::CountFrom(std::size_t number)
{
    std::size_t start = number == 0 ? 0 : m_starts[number - 1] + m_parts[number - 1]->rows.size();
    for (; number < m_parts.size(); ++number) {
        m_parts[number]->number = number;
        m_starts[number] = start;
        start += m_parts[number]->rows.size();
    }
}

} // namespace CommonUI
