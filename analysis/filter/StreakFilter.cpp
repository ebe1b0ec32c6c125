#include "analysis/filter/StreakFilter.h"

#include "analysis/numeric/Statistics.h"

namespace CommonUI::Analysis
{

namespace
{

// Lines that may hold a streak, between the line above and the line below.
class CStreakLines
{
public:
    CStreakLines(const SSurface& surface, const SStreakFilter& filter, double threshold)
        : m_surface(surface)
        , m_sign(filter.isBright ? 1 : -1)
        , m_threshold(threshold)
        , m_leastLength(filter.length)
    {
    }

    // Interpolates the streaks of a width that begin at a line.
    void Remove(std::size_t line, std::size_t width, SSurface& corrected) const
    {
        std::size_t length = 0;
        for (std::size_t column = 0; column <= m_surface.points; ++column) {
            if (column < m_surface.points && StandsOut(line, width, column)) {
                ++length;
                continue;
            }
            if (length >= m_leastLength)
                for (std::size_t i = column - length; i < column; ++i)
                    Interpolate(line, width, i, corrected);
            length = 0;
        }
    }

private:
    double Get(std::size_t line, std::size_t column) const
    {
        return m_surface.heights[line * m_surface.points + column];
    }

    bool StandsOut(std::size_t line, std::size_t width, std::size_t column) const
    {
        const double above = m_sign * Get(line - 1, column);
        const double below = m_sign * Get(line + width, column);
        for (std::size_t i = line; i < line + width; ++i) {
            const double height = m_sign * Get(i, column);
            if (!(height > above + m_threshold && height > below + m_threshold)) // also if one is missing
                return false;
        }
        return true;
    }

    void Interpolate(std::size_t line, std::size_t width, std::size_t column, SSurface& corrected) const
    {
        const double above = Get(line - 1, column);
        const double step = (Get(line + width, column) - above) / static_cast<double>(width + 1);
        for (std::size_t i = 0; i < width; ++i)
            corrected.heights[(line + i) * m_surface.points + column] =
                above + step * static_cast<double>(i + 1);
    }

    const SSurface& m_surface;
    double m_sign;
    double m_threshold;
    std::size_t m_leastLength;
};

} // namespace

SSurface RemoveStreaks(const SSurface& surface, const SStreakFilter& filter)
{
    SSurface corrected = surface;
    const double threshold = filter.threshold * FindNoise(surface.heights, surface.points);
    for (std::size_t width = 1; width <= filter.width && width + 2 <= surface.lines; ++width) {
        const SSurface before = corrected;
        const CStreakLines lines(before, filter, threshold);
        for (std::size_t line = 1; line + width < surface.lines; ++line)
            lines.Remove(line, width, corrected);
    }
    return corrected;
}

} // namespace CommonUI::Analysis
