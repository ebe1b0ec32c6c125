#pragma once

#include "analysis/grain/Neighbours.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Finds the neighbours of positions one by one, from several threads if need be.
class CNeighbourGrid
{
public:
    /// @param positions two at least and fewer than 2³²; they have to live as long as the grid
    explicit CNeighbourGrid(std::span<const SPosition> positions);

    SNeighbour FindNearest(std::size_t index) const;

private:
    struct SBest;

    std::ptrdiff_t GetColumn(const SPosition& p) const
    {
        return static_cast<std::ptrdiff_t>((p.x - m_origin.x) / m_size);
    }
    std::ptrdiff_t GetRow(const SPosition& p) const
    {
        return static_cast<std::ptrdiff_t>((p.y - m_origin.y) / m_size);
    }
    std::size_t GetSquare(const SPosition& p) const
    {
        return static_cast<std::size_t>(GetRow(p) * m_columns + GetColumn(p));
    }
    void Sort();
    void SearchSquares(std::ptrdiff_t row, std::ptrdiff_t first, std::ptrdiff_t last, std::size_t index,
                       SBest& best) const;

    // Positions are sorted into squares, two in each on average.
    std::span<const SPosition> m_positions;
    SPosition m_origin;
    double m_size; // of a square
    std::ptrdiff_t m_columns;
    std::ptrdiff_t m_rows;
    std::vector<std::uint32_t> m_begins; // where in m_sorted a square begins
    std::vector<std::uint32_t> m_sorted; // indices, square after square
};

} // namespace CommonUI::Analysis
