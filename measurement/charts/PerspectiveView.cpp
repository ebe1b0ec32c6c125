#include "measurement/charts/PerspectiveView.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/surface/Decimate.h"
#include "common/Base3D.h"
#include "common/NumberText.h"
#include "measurement/charts/Plot.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::SSurface;

namespace
{

constexpr std::size_t c_mostPoints = 48;
constexpr double c_blockHeight = 0.25; // of its longer side, which is 1
// Coordinates of the picture.
constexpr double c_width = 640;
constexpr double c_highest = 400;
constexpr double c_margin = 16;
constexpr double c_labelRoom = 44;

// A direction or a place in the block, whose middle is 0.
using SPoint = SBase3D<double>;

struct SPlace {
    double x = 0;
    double y = 0; // downwards
};

// Looks at the block over its corner in front. Points farther away are never drawn over nearer ones when
// those of the largest x and y are drawn first.
SPlace Project(const SPoint& point)
{
    constexpr double c_turn = 0.61;  // radians, around z
    constexpr double c_tilt = 0.55;  // of the view below the horizontal
    constexpr double c_distance = 3; // of the eye
    const double across = std::cos(c_turn) * point.x - std::sin(c_turn) * point.y;
    const double away = std::sin(c_turn) * point.x + std::cos(c_turn) * point.y;
    const double depth = std::cos(c_tilt) * away - std::sin(c_tilt) * point.z;
    const double up = std::sin(c_tilt) * away + std::cos(c_tilt) * point.z;
    const double scale = c_distance / (c_distance + depth);
    return {across * scale, -up * scale};
}

// "1.23": coordinates of so many small pieces have no more than a tenth.
double Tenth(double value)
{
    return std::round(value * 10) / 10;
}

std::string HexText(const SColor& color, double brightness)
{
    constexpr std::string_view c_digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const std::uint8_t part : {color.red, color.green, color.blue}) {
        const auto value = static_cast<std::size_t>(std::clamp(part * brightness, 0.0, 255.0));
        text += c_digits[value / 16];
        text += c_digits[value % 16];
    }
    return text;
}

class CBlock
{
public:
    CBlock(const SSurface& surface, const SColorScale& colors, CRange<double> heights)
        : m_surface(Analysis::Decimate(surface, c_mostPoints))
        , m_colors(colors)
        , m_heights(heights)
        , m_sides{static_cast<double>(surface.points) * surface.dx,
                  static_cast<double>(surface.lines) * surface.dy, 0}
    {
        const double longer = std::max(m_sides.x, m_sides.y);
        m_scale = 1 / longer;
        m_exaggeration = heights.GetLength() > 0 ? c_blockHeight * longer / heights.GetLength() : 1;
        Fit();
    }

    std::string Draw()
    {
        CSvg svg(c_width, m_bottom + c_labelRoom, u"Surface in perspective",
                 u"Heights from " + LengthLabel(m_heights.GetLower()) + u" to " +
                     LengthLabel(m_heights.GetUpper()) + u" over " + LengthLabel(m_sides.x) + u" × " +
                     LengthLabel(m_sides.y));
        svg.Open("g", {{"stroke-width", "0.7"}, {"stroke-linejoin", "round"}});
        for (std::size_t line = m_surface.lines - 1; line-- > 0;) {
            for (std::size_t point = m_surface.points - 1; point-- > 0;)
                DrawPiece(svg, point, line);
        }
        DrawWall(
            svg, m_surface.points, [](std::size_t i) { return std::pair(i, std::size_t{0}); }, "#8C8C8C");
        DrawWall(
            svg, m_surface.lines, [](std::size_t i) { return std::pair(std::size_t{0}, i); }, "#6E6E6E");
        svg.Close();
        DrawLabels(svg);
        return svg.Finish();
    }

private:
    double HeightAt(std::size_t point, std::size_t line) const
    {
        return m_surface.heights[line * m_surface.points + point];
    }
    // Where a point of the grid lies at a height, the lowest one for a missing point.
    SPoint PointAt(std::size_t point, std::size_t line, double height) const
    {
        const double x = static_cast<double>(point) / static_cast<double>(m_surface.points - 1) - 0.5;
        const double y = static_cast<double>(line) / static_cast<double>(m_surface.lines - 1) - 0.5;
        const double rise = std::isnan(height) ? 0 : height - m_heights.GetLower();
        return {x * m_sides.x * m_scale, y * m_sides.y * m_scale, rise * m_exaggeration * m_scale};
    }
    SPlace PlaceOf(const SPoint& point) const
    {
        const SPlace place = Project(point);
        return {m_left + place.x * m_zoom, m_top + place.y * m_zoom};
    }
    // Fits what the block may fill into the picture.
    void Fit()
    {
        CRange<double> across{0, 0};
        CRange<double> down{0, 0};
        for (const double x : {-0.5, 0.5}) {
            for (const double y : {-0.5, 0.5}) {
                for (const double z : {0.0, c_blockHeight}) {
                    const SPlace place = Project({x * m_sides.x * m_scale, y * m_sides.y * m_scale, z});
                    across = across.Including(place.x);
                    down = down.Including(place.y);
                }
            }
        }
        m_zoom = std::min((c_width - 2 * c_margin) / across.GetLength(),
                          (c_highest - 2 * c_margin) / down.GetLength());
        m_left = c_width / 2 - (across.GetLower() + across.GetUpper()) / 2 * m_zoom;
        m_top = c_margin - down.GetLower() * m_zoom;
        m_bottom = m_top + down.GetUpper() * m_zoom;
    }
    // The cell between four points, three of which have to be there.
    void DrawPiece(CSvg& svg, std::size_t point, std::size_t line) const
    {
        constexpr std::array<std::pair<std::size_t, std::size_t>, 4> c_corners{
            {{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
        CSvgPath path;
        double sum = 0;
        int count = 0;
        for (const auto& [right, behind] : c_corners) {
            const double height = HeightAt(point + right, line + behind);
            if (std::isnan(height))
                continue;
            const SPlace place = PlaceOf(PointAt(point + right, line + behind, height));
            count == 0 ? path.MoveTo(Tenth(place.x), Tenth(place.y))
                       : path.LineTo(Tenth(place.x), Tenth(place.y));
            sum += height - m_heights.GetLower();
            ++count;
        }
        if (count < 3)
            return;
        path.Close();
        const double length = m_heights.GetLength();
        const std::string color =
            HexText(m_colors.GetColor(length > 0 ? sum / count / length : 0.5), BrightnessOf(point, line));
        svg.Add("path", {{"fill", color}, {"stroke", color}, {"d", path.GetData()}});
    }
    // What slopes towards the light, to the left and behind the eye, is bright.
    double BrightnessOf(std::size_t point, std::size_t line) const
    {
        const auto slope = [this](double from, double to, double step) {
            const double rise = (to - from) * m_exaggeration / step;
            return std::isnan(rise) ? 0 : rise;
        };
        const double here = HeightAt(point, line);
        const double alongX =
            slope(here, HeightAt(point + 1, line), m_sides.x / static_cast<double>(m_surface.points - 1));
        const double alongY =
            slope(here, HeightAt(point, line + 1), m_sides.y / static_cast<double>(m_surface.lines - 1));
        const double light = (0.8 + 0.6 * alongX) / std::hypot(1.0, alongX, alongY);
        return std::clamp(0.55 + 0.45 * light / 0.8, 0.35, 1.25);
    }
    // A side of the block below the border of the surface.
    template<class FCell>
    void DrawWall(CSvg& svg, std::size_t count, FCell cellOf, std::string_view color) const
    {
        CSvgPath path;
        const auto add = [&](const SPoint& point) {
            const SPlace place = PlaceOf(point);
            path.IsEmpty() ? path.MoveTo(Tenth(place.x), Tenth(place.y))
                           : path.LineTo(Tenth(place.x), Tenth(place.y));
        };
        for (std::size_t i = 0; i < count; ++i) {
            const auto [point, line] = cellOf(i);
            add(PointAt(point, line, HeightAt(point, line)));
        }
        for (const std::size_t i : {count - 1, std::size_t{0}}) {
            const auto [point, line] = cellOf(i);
            add(PointAt(point, line, m_heights.GetLower()));
        }
        path.Close();
        svg.Add("path", {{"fill", color}, {"stroke", color}, {"d", path.GetData()}});
    }
    void DrawLabels(CSvg& svg) const
    {
        const auto middleOf = [this](double x, double y) {
            return PlaceOf({x * m_sides.x * m_scale, y * m_sides.y * m_scale, 0});
        };
        const SPlace right = middleOf(0, -0.5);
        const SPlace left = middleOf(-0.5, 0);
        svg.AddText(u"x " + LengthLabel(m_sides.x), right.x + 8, right.y + 18, "start");
        svg.AddText(u"y " + LengthLabel(m_sides.y), left.x - 8, left.y + 18, "end");
        CStr text =
            u"z from " + LengthLabel(m_heights.GetLower()) + u" to " + LengthLabel(m_heights.GetUpper());
        if (m_heights.GetLength() > 0) {
            const CNumberText factor(m_exaggeration, {.conversion = 'g', .precision = 2});
            text += u", heights × " + CStr::FromAscii(factor.View());
        }
        svg.AddText(text, c_width / 2, m_bottom + c_labelRoom - 8, "middle");
    }

    SSurface m_surface;
    const SColorScale& m_colors;
    CRange<double> m_heights;
    SPoint m_sides; // m
    double m_scale = 1;
    double m_exaggeration = 1;
    double m_zoom = 1;
    double m_left = 0;
    double m_top = 0;
    double m_bottom = 0;
};

} // namespace

std::string DrawPerspective(const SSurface& surface, const SColorScale& colors)
{
    const Analysis::SRange heights = Analysis::FindRange(surface.heights);
    if (heights.count == 0 || surface.points < 2 || surface.lines < 2)
        return {};
    return CBlock(surface, colors, {heights.lowest, heights.highest}).Draw();
}

} // namespace CommonUI::Measurement
