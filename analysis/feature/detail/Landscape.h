#pragma once

#include "analysis/feature/Watershed.h"
#include "analysis/surface/Surface.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace CommonUI::Analysis
{

/// A surface as water sees it: the right way up for dales, upside down for hills, which are dales then.
class CLandscape
{
public:
    CLandscape(const SSurface& surface, EFeature kind)
        : m_surface(surface)
        , m_sign(kind == EFeature::Dale ? 1 : -1)
        , m_perDistance{1 / surface.dx, 1 / surface.dy, 1 / std::hypot(surface.dx, surface.dy)}
    {
    }

    std::size_t GetSize() const { return m_surface.heights.size(); }
    const SSurface& GetSurface() const { return m_surface; }
    /// NaN for a missing point.
    double GetHeight(std::size_t point) const { return m_sign * m_surface.heights[point]; }
    bool IsMissing(std::size_t point) const { return std::isnan(m_surface.heights[point]); }

    /// The order in which water that rises everywhere reaches the points; false if one is missing.
    bool IsBefore(std::size_t a, std::size_t b) const
    {
        const double heightA = GetHeight(a);
        const double heightB = GetHeight(b);
        return heightA < heightB || (heightA == heightB && a < b);
    }

    /// Calls visit(neighbour, reciprocal distance) for each neighbour that there is, missing points included.
    template<class FVisit>
    void ForEachNeighbour(std::size_t point, const FVisit& visit) const
    {
        const std::size_t width = m_surface.points;
        const std::size_t column = point % width;
        const std::size_t line = point / width;
        const bool hasLeft = column > 0;
        const bool hasRight = column + 1 < width;
        const auto visitLine = [&](std::size_t middle) {
            if (hasLeft)
                visit(middle - 1, m_perDistance[2]);
            visit(middle, m_perDistance[1]);
            if (hasRight)
                visit(middle + 1, m_perDistance[2]);
        };
        if (line > 0)
            visitLine(point - width);
        if (hasLeft)
            visit(point - 1, m_perDistance[0]);
        if (hasRight)
            visit(point + 1, m_perDistance[0]);
        if (line + 1 < m_surface.lines)
            visitLine(point + width);
    }

    /// Whether a point does not have all of its eight neighbours.
    bool IsAtEdge(std::size_t point) const
    {
        int neighbours = 0;
        ForEachNeighbour(point, [&](std::size_t q, double) { neighbours += !IsMissing(q); });
        return neighbours < 8;
    }

private:
    const SSurface& m_surface;
    double m_sign;
    std::array<double, 3> m_perDistance; // along x, along y, along both
};

} // namespace CommonUI::Analysis
