#pragma once

#include "analysis/surface/Surface.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// The lines of a surface, or its columns.
class CSections
{
public:
    CSections(const SSurface& surface, bool isAlongY)
        : m_points(isAlongY ? surface.lines : surface.points)
        , m_spacing(isAlongY ? surface.dy : surface.dx)
    {
        if (!isAlongY) {
            m_heights = surface.heights;
            return;
        }
        m_heights.resize(surface.heights.size());
        constexpr std::size_t c_block = 32; // columns at once, which stay in the cache
        for (std::size_t first = 0; first < surface.points; first += c_block)
            for (std::size_t y = 0; y < surface.lines; ++y)
                for (std::size_t x = first; x < surface.points && x < first + c_block; ++x)
                    m_heights[x * surface.lines + y] = surface.heights[y * surface.points + x];
    }

    std::size_t GetCount() const { return m_points == 0 ? 0 : m_heights.size() / m_points; }
    double GetSpacing() const { return m_spacing; }
    std::span<const double> Get(std::size_t section) const
    {
        return std::span(m_heights).subspan(section * m_points, m_points);
    }

private:
    std::size_t m_points;
    double m_spacing;
    std::vector<double> m_heights{};
};

} // namespace CommonUI::Analysis
