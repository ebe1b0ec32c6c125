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
    return known.start + static_cast<std::size_t>(found - rows.begin());
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
        part.rows.insert(part.rows.begin() + static_cast<std::ptrdiff_t>(place - part.start), std::move(row));
        CGridRow::PartOf<TRow>(inserted) = &part;
        CountFrom(part.number + 1);
    }
    ++m_size;
}

template<class TRow>
TRow CGridRowList<TRow>::Take(std::size_t place)
{
    SPart& part = PartAt(place);
    TRow taken = std::move(part.rows[place - part.start]);
    CGridRow::PartOf<TRow>(*taken) = nullptr;
    const std::size_t number = part.number;
    part.rows.erase(part.rows.begin() + static_cast<std::ptrdiff_t>(place - part.start));
    if (part.rows.empty())
        m_parts.erase(m_parts.begin() + static_cast<std::ptrdiff_t>(number));
    CountFrom(number);
    --m_size;
    return taken;
}

template<class TRow>
void CGridRowList<TRow>::Erase(std::size_t place, std::size_t count)
{
    if (count == 0)
        return;
    const std::size_t first = PartAt(place).number;
    std::size_t offset = place - m_parts[first]->start;
    m_size -= count;
    for (std::size_t number = first; count != 0; ++number, offset = 0) {
        std::vector<TRow>& rows = m_parts[number]->rows;
        const std::size_t here = std::min(count, rows.size() - offset);
        const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(offset);
        const auto end = begin + static_cast<std::ptrdiff_t>(here);
        std::for_each(begin, end, [](const TRow& row) { CGridRow::PartOf<TRow>(*row) = nullptr; });
        rows.erase(begin, end);
        count -= here;
    }
    std::erase_if(m_parts, [](const auto& part) { return part->rows.empty(); });
    CountFrom(first);
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
    m_parts.reserve(m_parts.size() + 1);
    latter->rows.assign(std::make_move_iterator(half), std::make_move_iterator(part.rows.end()));
    part.rows.erase(half, part.rows.end());
    AddPart(part.number + 1, std::move(latter));
}

template<class TRow>
void CGridRowList<TRow>::AddPart(std::size_t number, std::unique_ptr<SPart> part)
{
    SPart& added = *part;
    m_parts.insert(m_parts.begin() + static_cast<std::ptrdiff_t>(number), std::move(part));
    for (const TRow& row : added.rows)
        CGridRow::PartOf<TRow>(*row) = &added;
    CountFrom(number);
}

// Numbers the parts from that one on, whose predecessors are right.
template<class TRow>
void CGridRowList<TRow>::CountFrom(std::size_t number)
{
    std::size_t start = number == 0 ? 0 : m_parts[number - 1]->start + m_parts[number - 1]->rows.size();
    for (; number < m_parts.size(); ++number) {
        SPart& part = *m_parts[number];
        part.number = number;
        part.start = std::exchange(start, start + part.rows.size());
    }
}

} // namespace CommonUI
