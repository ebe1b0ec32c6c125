#include "measurement/charts/SurfaceMap.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/surface/Decimate.h"
#include "measurement/charts/GrainOutlines.h"
#include "measurement/charts/Plot.h"
#include "measurement/charts/PngText.h"
#include "settings/catalogue/BuiltInSettingText.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::SGrainMap;
using Analysis::SSurface;

namespace
{

constexpr std::size_t c_mostPoints = 512;
constexpr std::size_t c_mostNumbers = 24;
constexpr std::size_t c_densePath = 50'000; // data of outlines that would hide the map
constexpr std::size_t c_colors = 255;
// Coordinates of the picture.
constexpr double c_width = 640;
constexpr double c_top = 30;
constexpr double c_bottom = 42;
constexpr double c_highest = 440;
constexpr double c_narrowest = 60; // a long strip is drawn this wide
constexpr double c_barGap = 18;
constexpr double c_barWidth = 14;
constexpr double c_markRoom = 10;

std::uint8_t NumberOf(double height, CRange<double> range)
{
    if (std::isnan(height))
        return 0;
    const double share = (height - range.GetLower()) / range.GetLength();
    return static_cast<std::uint8_t>(1 + std::lround(std::clamp(share, 0.0, 1.0) * (c_colors - 1)));
}

// The last line at the top.
SIndexedPicture MakeRaster(const SSurface& surface, CRange<double> range, const SColorScale& colors)
{
    SIndexedPicture raster{
        .width = surface.points, .height = surface.lines, .colors = colors.MakeTable(c_colors)};
    raster.numbers.reserve(surface.heights.size());
    for (std::size_t line = surface.lines; line-- > 0;) {
        for (const double height : surface.GetLine(line))
            raster.numbers.push_back(NumberOf(height, range));
    }
    return raster;
}

SIndexedPicture MakeBar(const SColorScale& colors)
{
    SIndexedPicture bar{.width = 1, .height = c_colors, .colors = colors.MakeTable(c_colors)};
    for (std::size_t i = c_colors; i > 0; --i)
        bar.numbers.push_back(static_cast<std::uint8_t>(i));
    return bar;
}

void AddImage(CSvg& svg, const SPlot& place, const std::string& png, std::string_view classes)
{
    svg.Add("image", {{"class", classes},
                      {"x", place.GetLeft()},
                      {"y", place.GetTop()},
                      {"width", place.GetRight() - place.GetLeft()},
                      {"height", place.GetBottom() - place.GetTop()},
                      {"preserveAspectRatio", "none"},
                      {"href", DataUri("image/png", png)}});
}

// Oblique lines, which show where the picture above them is transparent.
void AddHatching(CSvg& svg, const SPlot& plot)
{
    const double width = plot.GetRight() - plot.GetLeft();
    const double height = plot.GetBottom() - plot.GetTop();
    CSvgPath lines;
    constexpr double c_distance = 7;
    for (int i = 0; i * c_distance < width + height; ++i) {
        const double x = i * c_distance - height;
        lines.MoveTo(x, height);
        lines.LineTo(x + height, 0);
    }
    svg.Open("svg", {{"x", plot.GetLeft()}, {"y", plot.GetTop()}, {"width", width}, {"height", height}});
    svg.AddPath(lines, "axis");
    svg.Close();
}

// The middle of a number in the map.
struct SPlacedText {
    double x = 0;
    double y = 0;
    double width = 0;

    bool Covers(const SPlacedText& other) const
    {
        return std::abs(x - other.x) < (width + other.width) / 2 && std::abs(y - other.y) < 13;
    }
};

void AddOutlines(CSvg& svg, const SPlot& plot, const SGrainMap& grains)
{
    const SGrainOutlines outlines = MakeGrainOutlines(grains, c_mostNumbers);
    if (outlines.path.empty())
        return;
    const double width = plot.GetRight() - plot.GetLeft();
    const double height = plot.GetBottom() - plot.GetTop();
    const auto columns = static_cast<double>(outlines.columns);
    const auto rows = static_cast<double>(outlines.rows);
    svg.Open("svg", {{"x", plot.GetLeft()},
                     {"y", plot.GetTop()},
                     {"width", width},
                     {"height", height},
                     {"viewBox", "0 0 " + CoordinateText(columns) + ' ' + CoordinateText(rows)},
                     {"preserveAspectRatio", "none"},
                     {"overflow", "visible"}});
    const bool isDense = outlines.path.size() > c_densePath;
    if (!isDense)
        svg.Add("path", {{"class", "halo"}, {"d", outlines.path}});
    svg.Add("path", {{"class", isDense ? "outline fine" : "outline"}, {"d", outlines.path}});
    svg.Close();

    std::vector<SPlacedText> placed;
    for (const SGrainNumber& number : outlines.numbers) {
        const CStr text = CStr::Format(u"%u", number.label);
        const SPlacedText place{.x = plot.GetLeft() + number.x / columns * width,
                                .y = plot.GetTop() + number.y / rows * height,
                                .width = TextWidth(text)};
        if (std::ranges::any_of(placed, [&](const SPlacedText& other) { return other.Covers(place); }))
            continue;
        svg.AddText(text, place.x, place.y + 4, "number");
        placed.push_back(place);
    }
}

// A length of a side, which a file with one line may not have.
double SideOf(std::size_t count, double spacing, double otherwise)
{
    return static_cast<double>(count) * (spacing > 0 ? spacing : otherwise);
}

int IntervalsOf(double length, double each)
{
    return std::max(2, static_cast<int>(length / each));
}

} // namespace

SColorScale GetBuiltInColorScale(EBuiltInSetting setting)
{
    CInifile ini;
    ini.LoadBytes(GetBuiltInSettingText(setting).ToUtf8());
    SColorScale scale;
    scale.Load(ini);
    return scale;
}

std::string DrawSurfaceMap(const SSurface& surface, const SColorScale& colors, const SGrainMap* grains)
{
    const Analysis::SRange heights = Analysis::FindRange(surface.heights);
    if (heights.count == 0)
        return {};
    const CRange<double> range = MakeRoom({heights.lowest, heights.highest});
    const SSurface shown = Analysis::Decimate(surface, c_mostPoints);
    const std::string raster = MakePng(MakeRaster(shown, range, colors));
    if (raster.empty())
        return {};
    const double width = SideOf(surface.points, surface.dx, surface.dy);
    const double depth = SideOf(surface.lines, surface.dy, surface.dx);

    // The widths of the marks' texts are about the same for whatever number of them.
    const double scaleRoom =
        c_barGap + c_barWidth + c_markRoom + std::max(48.0, LabelWidth(MakeAxis(range, 8)));
    const double left = c_markRoom + std::max(38.0, LabelWidth(MakeAxis({0, depth}, 8)));
    const double widest = c_width - left - scaleRoom;
    const double across = std::max(c_narrowest, std::min(widest, c_highest * width / depth));
    const double down = std::clamp(across * depth / width, c_narrowest, c_highest);
    const SPlot plot{.x = {.range = {0, width}, .from = left, .to = left + across},
                     .y = {.range = {0, depth}, .from = c_top + down, .to = c_top}};

    CSvg svg(c_width, c_top + down + c_bottom,
             grains ? u"Map of the surface with its grains" : u"Map of the surface",
             u"Heights from " + LengthText(heights.lowest) + u" to " + LengthText(heights.highest) +
                 u" over " + LengthText(width) + u" × " + LengthText(depth));
    if (heights.count < surface.heights.size())
        AddHatching(svg, plot);
    AddImage(svg, plot, raster, shown.points <= 256 && shown.lines <= 256 ? "pixels" : "smooth");
    if (grains)
        AddOutlines(svg, plot, *grains);
    DrawFrame(svg, plot);
    const SAxis x = MakeAxisBelow({0, width}, across, IntervalsOf(across, 70));
    DrawAxisBelow(svg, plot, x, AxisName(u"x", x.unit), false);
    const SAxis y = MakeAxis({0, depth}, IntervalsOf(down, 45));
    DrawAxisLeft(svg, plot, y, AxisName(u"y", y.unit), false);

    const double bar = plot.GetRight() + c_barGap;
    const SPlot legend{.x = {.range = {0, 1}, .from = bar, .to = bar + c_barWidth},
                       .y = {.range = range, .from = plot.GetBottom(), .to = plot.GetTop()}};
    AddImage(svg, legend, MakePng(MakeBar(colors)), "smooth");
    DrawFrame(svg, legend);
    const SAxis z = MakeAxis(range, IntervalsOf(down, 45));
    for (const STick& tick : z.ticks) {
        const double at = legend.y.Map(tick.value);
        svg.AddLine(legend.GetRight(), at, legend.GetRight() + 5, at, "axis");
        svg.AddText(tick.text, legend.GetRight() + 8, at + 4.5, "start");
    }
    const CStr name = AxisName(u"z", z.unit);
    svg.AddText(name, std::min(bar, c_width - TextWidth(name)), c_top - 10, "start");
    return svg.Finish();
}

} // namespace CommonUI::Measurement
