#include "view/MapPicture.h"

#include "common/NumberText.h"
#include "common/Unit.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace SurfaceView
{

using CommonUI::CStr;
using CommonUI::CUnit;
using CommonUI::SColor;
using CommonUI::Analysis::SSurface;

namespace
{

constexpr std::size_t c_samples = 4; // of the points of a pixel along each direction

// The indices of the points that are taken for one row or column of pixels.
struct STaken {
    std::array<std::uint32_t, c_samples> indices{};
    std::size_t count = 0;
};

// @param first, last positions of the pixel's edges, counted in points from the edge of the first one
STaken TakePoints(double first, double last, std::size_t points)
{
    const auto most = static_cast<double>(points - 1);
    const double from = std::clamp(std::floor(first + 0.5), 0.0, most);
    const double to = std::clamp(std::ceil(last - 0.5), from + 1, most + 1);
    STaken taken;
    if (to - from < 2) { // the point on which the middle of the pixel lies
        taken.indices[taken.count++] =
            static_cast<std::uint32_t>(std::clamp(std::floor((first + last) / 2), 0.0, most));
        return taken;
    }
    taken.count = std::min(c_samples, static_cast<std::size_t>(to - from));
    for (std::size_t i = 0; i < taken.count; ++i)
        taken.indices[i] = static_cast<std::uint32_t>(from + (static_cast<double>(i) + 0.5) * (to - from) /
                                                                 static_cast<double>(taken.count));
    return taken;
}

double MeanOf(const SSurface& surface, const STaken& columns, const STaken& lines)
{
    double sum = 0;
    int count = 0;
    for (std::size_t l = 0; l < lines.count; ++l) {
        const double* const line = surface.heights.data() + lines.indices[l] * surface.points;
        for (std::size_t c = 0; c < columns.count; ++c) {
            const double height = line[columns.indices[c]];
            if (!std::isnan(height)) {
                sum += height;
                ++count;
            }
        }
    }
    return count > 0 ? sum / count : CommonUI::Analysis::c_missing;
}

std::uint32_t PixelOf(const std::optional<SColor>& color)
{
    if (!color)
        return 0;
    return 0xFF000000U | static_cast<std::uint32_t>(color->red) << 16 |
           static_cast<std::uint32_t>(color->green) << 8 | color->blue;
}

// What one direction of the map takes for each of its pixels.
std::vector<STaken> TakeAlong(double first, double step, int count, std::size_t points)
{
    std::vector<STaken> taken;
    taken.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double at = first + i * step;
        taken.push_back(TakePoints(std::min(at, at + step), std::max(at, at + step), points));
    }
    return taken;
}

// A length in a unit, with as many decimals as tell a ten-thousandth of a range.
CStr LengthText(double value, const CUnit& unit, double range)
{
    const double factor = unit.GetFactorValue();
    const int decade = range > 0 ? static_cast<int>(std::floor(std::log10(range / factor))) : 0;
    const CommonUI::CNumberText text(value / factor,
                                     {.conversion = 'f', .precision = std::clamp(3 - decade, 0, 9)});
    return CStr::FromAscii(text.View()).Replace(u"-", u"−") + u" " + unit.GetText();
}

CUnit UnitOf(double length)
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    return metre.WithFactor(metre.SuitableFactor(length, 1));
}

} // namespace

std::vector<std::uint32_t> DrawMap(const SSurface& surface, const SMapColors& colors, const CMapPlace& place,
                                   int scale)
{
    const CommonUI::SRect shown = place.GetShown();
    const int width = std::max(0, shown.GetWidth() * scale);
    const int height = std::max(0, shown.GetHeight() * scale);
    std::vector<std::uint32_t> table;
    for (const SColor& color : colors.table)
        table.push_back(PixelOf(color));
    const std::uint32_t missing = PixelOf(colors.missing);

    const SMapPoint corner = place.ToPoint({.x = shown.left + 0.0, .y = shown.top + 0.0});
    const SMapPoint next = place.ToPoint({.x = shown.left + 1.0, .y = shown.top + 1.0});
    const double dx = (place.GetUpper().x - place.GetLower().x) / static_cast<double>(surface.points);
    const double dy = (place.GetUpper().y - place.GetLower().y) / static_cast<double>(surface.lines);
    const auto columns = TakeAlong((corner.x - place.GetLower().x) / dx, (next.x - corner.x) / dx / scale,
                                   width, surface.points);
    const auto lines = TakeAlong((corner.y - place.GetLower().y) / dy, (next.y - corner.y) / dy / scale,
                                 height, surface.lines);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(columns.size() * lines.size());
    const double most = static_cast<double>(table.size() - 1);
    for (const STaken& line : lines) {
        for (const STaken& column : columns) {
            const double mean = MeanOf(surface, column, line);
            const double share = (mean - colors.heights.GetLower()) / colors.heights.GetLength();
            pixels.push_back(
                std::isnan(mean)
                    ? missing
                    : table[static_cast<std::size_t>(std::lround(std::clamp(share, 0.0, 1.0) * most))]);
        }
    }
    return pixels;
}

CStr DescribePoint(const SSurface& surface, const CommonUI::CRange<double>& heights, const SMapPoint& point)
{
    const CMapPlace place(surface);
    const double dx = (place.GetUpper().x - place.GetLower().x) / static_cast<double>(surface.points);
    const double dy = (place.GetUpper().y - place.GetLower().y) / static_cast<double>(surface.lines);
    const double column = std::floor((point.x - place.GetLower().x) / dx);
    const double line = std::floor((point.y - place.GetLower().y) / dy);
    if (!(column >= 0 && line >= 0 && column < static_cast<double>(surface.points) &&
          line < static_cast<double>(surface.lines)))
        return {};
    const double width = static_cast<double>(surface.points) * dx;
    const double depth = static_cast<double>(surface.lines) * dy;
    const double height =
        surface.heights[static_cast<std::size_t>(line) * surface.points + static_cast<std::size_t>(column)];
    const double highest = std::max(std::abs(heights.GetLower()), std::abs(heights.GetUpper()));
    const CUnit unit = UnitOf(std::max(width, depth));
    return u"x = " + LengthText(column * dx, unit, width) + u", y = " + LengthText(line * dy, unit, depth) +
           u", z = " +
           (std::isnan(height) ? CStr(u"–") : LengthText(height, UnitOf(highest), heights.GetLength()));
}

} // namespace SurfaceView
