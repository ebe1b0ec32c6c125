#include "view/GrainPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace SurfaceView
{

using CommonUI::Analysis::SGrainMap;

namespace
{

// Where the points of a map lie.
struct SRaster {
    SMapPoint lower{};
    double dx = 1;
    double dy = 1;

    SRaster(const SGrainMap& map, const CMapPlace& place)
        : lower(place.GetLower())
        , dx((place.GetUpper().x - lower.x) / static_cast<double>(map.points))
        , dy((place.GetUpper().y - lower.y) / static_cast<double>(map.lines))
    {
    }
};

// The indices of points of a pixel, that of its middle first; those of none beside the map.
using CTaken = std::array<std::size_t, 4>;

// Not evenly spread, so that what is regular in a surface does not hide between them.
constexpr double c_places[] = {0.5, 0.04, 0.31, 0.87};

std::vector<CTaken> TakeAlong(double first, double step, int count, std::size_t points)
{
    const bool holdsMany = std::abs(step) > 2;
    std::vector<CTaken> taken(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < taken.size(); ++i)
        for (std::size_t k = 0; k < taken[i].size(); ++k) {
            const double place = static_cast<double>(i) + c_places[holdsMany ? k : 0];
            const double at = std::floor(first + place * step);
            taken[i][k] = at >= 0 && at < static_cast<double>(points) ? static_cast<std::size_t>(at) : points;
        }
    return taken;
}

struct SLabel {
    std::uint32_t grain = 0;
    bool isMixed = false; // whether the pixel has something else, too
};

class CLabels
{
public:
    CLabels(const SGrainMap& map, const std::vector<CTaken>& columns, const std::vector<CTaken>& lines)
        : m_map(map)
        , m_width(columns.size())
        , m_height(lines.size())
    {
        m_labels.reserve(m_width * m_height);
        for (const CTaken& line : lines)
            for (const CTaken& column : columns)
                m_labels.push_back(Take(column, line));
    }

    std::size_t GetWidth() const noexcept { return m_width; }
    std::size_t GetHeight() const noexcept { return m_height; }
    const SLabel& Get(std::size_t x, std::size_t y) const { return m_labels[y * m_width + x]; }
    // Beyond the edge the picture goes on as it ends: what is cut off has no outline there.
    std::array<SLabel, 4> GetAround(std::size_t x, std::size_t y) const
    {
        return {Get(x > 0 ? x - 1 : 0, y), Get(std::min(x + 1, m_width - 1), y), Get(x, y > 0 ? y - 1 : 0),
                Get(x, std::min(y + 1, m_height - 1))};
    }

private:
    std::uint32_t At(std::size_t column, std::size_t line) const
    {
        return line < m_map.lines && column < m_map.points ? m_map.labels[line * m_map.points + column] : 0;
    }
    SLabel Take(const CTaken& columns, const CTaken& lines) const
    {
        const std::uint32_t grain = At(columns[0], lines[0]);
        if (columns[0] == columns[1] && lines[0] == lines[1])
            return {grain, false};
        const auto isOther = [&](std::size_t line) {
            return std::ranges::any_of(columns,
                                       [&](std::size_t column) { return At(column, line) != grain; });
        };
        return {grain, std::ranges::any_of(lines, isOther)};
    }

    const SGrainMap& m_map;
    std::size_t m_width;
    std::size_t m_height;
    std::vector<SLabel> m_labels;
};

std::uint32_t ColorOf(const CLabels& labels, std::size_t x, std::size_t y, const SGrainColors& colors,
                      std::uint32_t chosen)
{
    const SLabel& label = labels.Get(x, y);
    const auto around = labels.GetAround(x, y);
    if (chosen > 0 && label.grain == chosen && label.isMixed)
        return colors.chosen; // however small it is
    if (label.isMixed && std::ranges::all_of(around, &SLabel::isMixed))
        return colors.dense;
    const bool isEdge = label.isMixed || std::ranges::any_of(around, [&](const SLabel& other) {
                            return other.grain != label.grain && !other.isMixed;
                        });
    if (isEdge)
        return label.grain > 0 ? colors.inside : colors.outside;
    return chosen > 0 && label.grain == chosen ? colors.chosen : 0;
}

std::vector<std::uint32_t> DrawLabels(const CLabels& labels, const SGrainColors& colors, std::uint32_t chosen)
{
    std::vector<std::uint32_t> pixels;
    pixels.reserve(labels.GetWidth() * labels.GetHeight());
    for (std::size_t y = 0; y < labels.GetHeight(); ++y)
        for (std::size_t x = 0; x < labels.GetWidth(); ++x)
            pixels.push_back(ColorOf(labels, x, y, colors, chosen));
    return pixels;
}

} // namespace

std::vector<std::uint32_t> DrawGrains(const SGrainMap& map, const SGrainColors& colors, std::uint32_t chosen,
                                      const CMapPlace& place, int scale)
{
    const CommonUI::SRect shown = place.GetShown();
    const SRaster raster(map, place);
    const SMapPoint corner = place.ToPoint({.x = shown.left + 0.0, .y = shown.top + 0.0});
    const SMapPoint next = place.ToPoint({.x = shown.left + 1.0, .y = shown.top + 1.0});
    const auto columns =
        TakeAlong((corner.x - raster.lower.x) / raster.dx, (next.x - corner.x) / raster.dx / scale,
                  std::max(0, shown.GetWidth() * scale), map.points);
    const auto lines =
        TakeAlong((corner.y - raster.lower.y) / raster.dy, (next.y - corner.y) / raster.dy / scale,
                  std::max(0, shown.GetHeight() * scale), map.lines);
    return DrawLabels(CLabels(map, columns, lines), colors, chosen);
}

std::vector<std::uint32_t> DrawGrains(const SGrainMap& map, const SGrainColors& colors, std::uint32_t chosen,
                                      const SGridPart& part, std::size_t width, std::size_t height)
{
    const auto take = [](std::size_t first, std::size_t count, std::size_t pixels, std::size_t points) {
        return TakeAlong(static_cast<double>(first), static_cast<double>(count) / static_cast<double>(pixels),
                         static_cast<int>(pixels), points);
    };
    const CLabels labels(map, take(part.column, part.points, width, map.points),
                         take(part.line, part.lines, height, map.lines));
    return DrawLabels(labels, colors, chosen);
}

std::uint32_t FindGrain(const SGrainMap& map, const CMapPlace& place, const SMapPoint& point)
{
    const SRaster raster(map, place);
    const double column = std::floor((point.x - raster.lower.x) / raster.dx);
    const double line = std::floor((point.y - raster.lower.y) / raster.dy);
    if (!(column >= 0 && column < static_cast<double>(map.points) && line >= 0 &&
          line < static_cast<double>(map.lines)))
        return 0;
    return map.labels[static_cast<std::size_t>(line) * map.points + static_cast<std::size_t>(column)];
}

std::optional<SMapPoint> FindMiddle(const SGrainMap& map, const CMapPlace& place, std::uint32_t grain)
{
    std::size_t left = std::numeric_limits<std::size_t>::max();
    std::size_t right = 0;
    std::optional<std::size_t> first;
    std::size_t last = 0;
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        if (map.labels[i] != grain)
            continue;
        left = std::min(left, i % map.points);
        right = std::max(right, i % map.points);
        last = i / map.points;
        first = first.value_or(last);
    }
    if (!first || grain == 0)
        return {};
    const SRaster raster(map, place);
    return SMapPoint{.x = raster.lower.x + raster.dx * static_cast<double>(left + right + 1) / 2,
                     .y = raster.lower.y + raster.dy * static_cast<double>(*first + last + 1) / 2};
}

} // namespace SurfaceView
