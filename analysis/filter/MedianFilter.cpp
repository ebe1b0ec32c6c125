#include "analysis/filter/MedianFilter.h"

#include "analysis/filter/detail/RankWindow.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/numeric/Statistics.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

// Points and lines of a tile, whose windows share the sorting of their heights.
constexpr std::size_t c_tile = 64;

// Columns or lines from first to before last.
struct SSection {
    std::size_t first;
    std::size_t last;

    std::size_t GetSize() const { return last - first; }
};

// The section and as much as windows reach beyond it.
SSection Widen(const SSection& section, std::size_t window, std::size_t count)
{
    const std::size_t reach = window / 2;
    return {.first = section.first - std::min(section.first, reach),
            .last = std::min(section.last + reach, count)};
}

// The windows of a tile's points.
class CTile
{
public:
    CTile(const SSurface& surface, const SMedianFilter& filter, const SSection& columns,
          const SSection& lines)
        : m_surface(surface)
        , m_filter(filter)
        , m_columns(columns)
        , m_lines(lines)
        , m_inColumns(Widen(columns, filter.columns, surface.points))
        , m_inLines(Widen(lines, filter.rows, surface.lines))
        , m_window(CollectHeights())
    {
    }

    // Calls visit(index, window) for each valid point.
    template<class FVisit>
    void Visit(const FVisit& visit)
    {
        for (std::size_t line = m_lines.first; line < m_lines.last; ++line)
            VisitLine(line, visit);
    }

private:
    std::vector<double> CollectHeights() const
    {
        std::vector<double> heights;
        heights.reserve(m_inColumns.GetSize() * m_inLines.GetSize());
        for (std::size_t line = m_inLines.first; line < m_inLines.last; ++line) {
            const auto part = m_surface.GetLine(line).subspan(m_inColumns.first, m_inColumns.GetSize());
            heights.insert(heights.end(), part.begin(), part.end());
        }
        return heights;
    }

    template<class FVisit>
    void VisitLine(std::size_t line, const FVisit& visit)
    {
        const SSection rows = Widen({line, line + 1}, m_filter.rows, m_surface.lines);
        SSection inside = {m_inColumns.first, m_inColumns.first};
        m_window.Clear();
        for (std::size_t column = m_columns.first; column < m_columns.last; ++column) {
            const SSection wanted = Widen({column, column + 1}, m_filter.columns, m_surface.points);
            for (; inside.last < wanted.last; ++inside.last)
                ForColumn(inside.last, rows, [&](std::size_t i) { m_window.Add(i); });
            for (; inside.first < wanted.first; ++inside.first)
                ForColumn(inside.first, rows, [&](std::size_t i) { m_window.Remove(i); });
            const std::size_t index = line * m_surface.points + column;
            if (!std::isnan(m_surface.heights[index]))
                visit(index, m_window);
        }
    }

    template<class FChange>
    void ForColumn(std::size_t column, const SSection& rows, const FChange& change)
    {
        for (std::size_t row = rows.first; row < rows.last; ++row)
            change((row - m_inLines.first) * m_inColumns.GetSize() + column - m_inColumns.first);
    }

    const SSurface& m_surface;
    const SMedianFilter& m_filter;
    SSection m_columns;
    SSection m_lines;
    SSection m_inColumns; // with the reach of the windows
    SSection m_inLines;
    CRankWindow m_window;
};

// Calls visit(index, window) for each valid point, in several threads.
template<class FVisit>
void VisitWindows(const SSurface& surface, const SMedianFilter& filter, const FVisit& visit)
{
    const std::size_t across = (surface.points + c_tile - 1) / c_tile;
    const std::size_t down = (surface.lines + c_tile - 1) / c_tile;
    ComputeInShares(across * down, [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const std::size_t x = i % across * c_tile;
            const std::size_t y = i / across * c_tile;
            CTile(surface, filter, {x, std::min(x + c_tile, surface.points)},
                  {y, std::min(y + c_tile, surface.lines)})
                .Visit(visit);
        }
    });
}

} // namespace

SSurface FilterMedian(const SSurface& surface, const SMedianFilter& filter)
{
    SSurface filtered = surface;
    VisitWindows(surface, filter, [&](std::size_t index, CRankWindow& window) {
        const double median = window.GetMedian();
        double& height = filtered.heights[index];
        if (filter.threshold == 0 || std::fabs(height - median) > filter.threshold * window.GetSpread())
            height = median;
    });
    return filtered;
}

SSurface RemoveLineSpikes(const SSurface& surface, const SLineSpikeFilter& filter)
{
    std::vector<double> limits(surface.lines);
    for (std::size_t line = 0; line < surface.lines; ++line)
        limits[line] = filter.threshold * FindNoise(surface.GetLine(line), 1);
    SSurface filtered = surface;
    VisitWindows(surface, {.columns = filter.points, .rows = 1}, [&](std::size_t index, CRankWindow& window) {
        const double median = window.GetMedian();
        double& height = filtered.heights[index];
        if (std::fabs(height - median) > limits[index / surface.points])
            height = median;
    });
    return filtered;
}

SSurface SmoothInside(const SSurface& surface, std::size_t columns, std::size_t rows)
{
    SSurface smooth = surface;
    VisitWindows(surface, {.columns = columns, .rows = rows}, [&](std::size_t index, CRankWindow& window) {
        if (window.GetCount() == columns * rows)
            smooth.heights[index] = window.GetMedian();
    });
    return smooth;
}

} // namespace CommonUI::Analysis
