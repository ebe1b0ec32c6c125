#include "analysis/grain/detail/NeighbourGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();

} // namespace

struct CNeighbourGrid::SBest {
    std::size_t index = 0;
    double square = c_infinity; // of the distance
};

CNeighbourGrid::CNeighbourGrid(std::span<const SPosition> positions)
    : m_positions(positions)
{
    const auto [minX, maxX] = std::ranges::minmax(positions, {}, &SPosition::x);
    const auto [minY, maxY] = std::ranges::minmax(positions, {}, &SPosition::y);
    const double width = maxX.x - minX.x;
    const double height = maxY.y - minY.y;
    const double perSquare = 2 / static_cast<double>(positions.size());
    m_origin = {minX.x, minY.y};
    m_size = std::max(std::sqrt(width * height * perSquare), std::max(width, height) * perSquare);
    if (!(m_size > 0))
        m_size = 1; // all positions are the same
    m_columns = static_cast<std::ptrdiff_t>(width / m_size) + 1;
    m_rows = static_cast<std::ptrdiff_t>(height / m_size) + 1;
    Sort();
}

SNeighbour CNeighbourGrid::FindNearest(std::size_t index) const
{
    SBest best;
    const SPosition& position = m_positions[index];
    const std::ptrdiff_t column = GetColumn(position);
    const std::ptrdiff_t row = GetRow(position);
    // What lies farther than the squares at a distance of `ring` is at least that many squares away.
    for (std::ptrdiff_t ring = 0; std::sqrt(best.square) >= static_cast<double>(ring - 1) * m_size; ++ring) {
        const std::ptrdiff_t last = std::min(row + ring, m_rows - 1);
        for (std::ptrdiff_t r = std::max(row - ring, std::ptrdiff_t{0}); r <= last; ++r) {
            if (r == row - ring || r == row + ring) {
                SearchSquares(r, column - ring, column + ring, index, best);
            } else {
                SearchSquares(r, column - ring, column - ring, index, best);
                SearchSquares(r, column + ring, column + ring, index, best);
            }
        }
    }
    const SPosition& other = m_positions[best.index];
    SNeighbour neighbour{.index = best.index, .distance = std::sqrt(best.square)};
    if (best.square > 0)
        neighbour.angle = std::atan2(other.y - position.y, other.x - position.x) * 180 / std::numbers::pi;
    return neighbour;
}

void CNeighbourGrid::Sort()
{
    m_begins.resize(static_cast<std::size_t>(m_columns * m_rows) + 2);
    for (const SPosition& p : m_positions)
        ++m_begins[GetSquare(p) + 2];
    for (std::size_t i = 2; i < m_begins.size(); ++i)
        m_begins[i] += m_begins[i - 1];
    m_sorted.resize(m_positions.size());
    for (std::size_t i = 0; i < m_positions.size(); ++i)
        m_sorted[m_begins[GetSquare(m_positions[i]) + 1]++] = static_cast<std::uint32_t>(i);
}

// Squares of one row, as far as they exist.
void CNeighbourGrid::SearchSquares(std::ptrdiff_t row, std::ptrdiff_t first, std::ptrdiff_t last,
                                   std::size_t index, SBest& best) const
{
    first = std::max(first, std::ptrdiff_t{0});
    last = std::min(last, m_columns - 1);
    if (first > last)
        return;
    const std::size_t end = m_begins[static_cast<std::size_t>(row * m_columns + last) + 1];
    for (std::size_t i = m_begins[static_cast<std::size_t>(row * m_columns + first)]; i < end; ++i) {
        const std::size_t other = m_sorted[i];
        const double x = m_positions[other].x - m_positions[index].x;
        const double y = m_positions[other].y - m_positions[index].y;
        const double square = x * x + y * y;
        if (other != index && (square < best.square || (square == best.square && other < best.index)))
            best = {other, square};
    }
}

std::vector<SNeighbour> FindNeighbours(std::span<const SPosition> positions)
{
    std::vector<SNeighbour> neighbours;
    if (positions.size() < 2)
        return neighbours;
    const CNeighbourGrid grid(positions);
    neighbours.reserve(positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i)
        neighbours.push_back(grid.FindNearest(i));
    return neighbours;
}

} // namespace CommonUI::Analysis
