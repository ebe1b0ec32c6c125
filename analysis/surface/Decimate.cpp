#include "analysis/surface/Decimate.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

// The points of a line that one point of the new line stands for.
struct SWindow {
    std::size_t begin = 0;
    std::size_t end = 0; // behind the last
};

// New points at equal distances, the first and the last where they were, and what lies within half a
// distance of each.
std::vector<SWindow> MakeWindows(std::size_t before, std::size_t after)
{
    std::vector<SWindow> windows(after, {.begin = 0, .end = 1});
    if (after < 2) // a single line stays as it is
        return windows;
    const double distance = static_cast<double>(before - 1) / static_cast<double>(after - 1);
    for (std::size_t i = 0; i < after; ++i) {
        const double middle = static_cast<double>(i) * distance;
        windows[i].begin = static_cast<std::size_t>(std::max(0.0, std::ceil(middle - distance / 2)));
        windows[i].end = std::min(before, static_cast<std::size_t>(std::floor(middle + distance / 2)) + 1);
    }
    return windows;
}

double MeanOf(const SSurface& surface, const SWindow& columns, const SWindow& lines)
{
    double sum = 0;
    std::size_t count = 0;
    for (std::size_t line = lines.begin; line < lines.end; ++line) {
        for (const double height :
             surface.GetLine(line).subspan(columns.begin, columns.end - columns.begin)) {
            if (std::isnan(height))
                continue;
            sum += height;
            ++count;
        }
    }
    return count > 0 ? sum / static_cast<double>(count) : c_missing;
}

// The spacing that keeps a length with fewer points.
double Stretch(double spacing, std::size_t before, std::size_t after)
{
    return after < 2 ? spacing : spacing * static_cast<double>(before - 1) / static_cast<double>(after - 1);
}

} // namespace

SSurface Decimate(const SSurface& surface, std::size_t maximum)
{
    if (surface.points <= maximum && surface.lines <= maximum)
        return surface;
    SSurface small{.points = std::min(surface.points, maximum),
                   .lines = std::min(surface.lines, maximum),
                   .channel = surface.channel,
                   .fileName = surface.fileName};
    small.dx = Stretch(surface.dx, surface.points, small.points);
    small.dy = Stretch(surface.dy, surface.lines, small.lines);
    small.heights.reserve(small.points * small.lines);
    const std::vector<SWindow> columns = MakeWindows(surface.points, small.points);
    for (const SWindow& lines : MakeWindows(surface.lines, small.lines)) {
        for (const SWindow& window : columns)
            small.heights.push_back(MeanOf(surface, window, lines));
    }
    small.missing = static_cast<std::size_t>(
        std::ranges::count_if(small.heights, [](double height) { return std::isnan(height); }));
    return small;
}

} // namespace CommonUI::Analysis
