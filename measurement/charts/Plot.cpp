#include "measurement/charts/Plot.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

namespace
{

constexpr double c_markLength = 5;
constexpr double c_digitWidth = 8.3; // of wide fonts in the style's size
constexpr double c_lineHeight = 16;
constexpr double c_textGap = 10;

constexpr std::string_view c_style = R"(<style>
:root {
color-scheme:light dark;
}
.charts {
display:grid;
grid-template-columns:repeat(auto-fill, minmax(min(28em, 100%), 1fr));
gap:1.5em 2em;
max-width:84em;
margin:1.5em 0;
}
.charts figure {
max-width:41em;
margin:0;
break-inside:avoid;
}
.charts figcaption {
margin-bottom:0.4em;
}
.chart {
--curve:#0B5CAD;
--second:#C2410C;
--third:#15803D;
display:block;
height:auto;
font-size:13px;
}
.chart text {
fill:currentColor;
}
.chart .middle {
text-anchor:middle;
}
.chart .end {
text-anchor:end;
}
.chart .note {
stroke:Canvas;
stroke-width:4px;
stroke-linejoin:round;
paint-order:stroke;
}
.chart .axis, .chart .grid, .chart .mark {
fill:none;
stroke:currentColor;
}
.chart .grid {
stroke-opacity:0.15;
}
.chart .mark {
stroke-dasharray:5 4;
stroke-opacity:0.7;
}
.chart .curve, .chart .second, .chart .third {
fill:none;
stroke:var(--curve);
stroke-width:1.5;
stroke-linejoin:round;
stroke-linecap:round;
}
.chart .second {
stroke:var(--second);
}
.chart .third {
stroke:var(--third);
}
.chart .area {
fill:var(--curve);
fill-opacity:0.55;
}
.chart .part {
fill:var(--third);
fill-opacity:0.25;
}
.chart text.first {
fill:var(--curve);
}
.chart text.other {
fill:var(--second);
}
.chart text.more {
fill:var(--third);
}
.chart .pixels {
image-rendering:pixelated;
}
.chart .outline {
fill:none;
stroke:#000;
stroke-width:1.2;
vector-effect:non-scaling-stroke;
}
.chart .fine {
stroke-width:0.6;
}
.chart .halo {
fill:none;
stroke:#FFF;
stroke-width:2.8;
stroke-opacity:0.8;
vector-effect:non-scaling-stroke;
}
.chart text.number {
fill:#000;
stroke:#FFF;
stroke-width:3px;
paint-order:stroke;
font-size:12px;
text-anchor:middle;
}
@media screen and (prefers-color-scheme:dark) {
.chart {
--curve:#7CB8FF;
--second:#FFA366;
--third:#6EE7A0;
}
html th {
background-color:#3A3A3A;
}
}
@media print {
:root {
color-scheme:light;
}
.charts {
grid-template-columns:1fr 1fr;
gap:1em;
}
}
</style>
)";

} // namespace

CRange<double> MakeRoom(CRange<double> range)
{
    const double greatest = std::max(std::abs(range.GetLower()), std::abs(range.GetUpper()));
    if (range.GetLength() > 1e-12 * greatest)
        return range;
    const double room = greatest > 0 ? greatest / 2 : 1e-9;
    const double middle = range.GetLower() / 2 + range.GetUpper() / 2;
    return {middle - room, middle + room};
}

double SScale::Map(double value) const
{
    const auto place = [this](double number) { return isLogarithmic ? std::log10(number) : number; };
    const double lower = place(range.GetLower());
    const double share = (place(value) - lower) / (place(range.GetUpper()) - lower);
    return from + share * (to - from);
}

CStr AxisName(const CStr& quantity, const CStr& unit)
{
    return unit.IsEmpty() ? quantity : quantity + u" / " + unit;
}

void DrawAxisBelow(CSvg& svg, const SPlot& plot, const SAxis& axis, const CStr& name, bool hasGrid)
{
    const double bottom = plot.GetBottom();
    for (const STick& tick : axis.ticks) {
        const double x = plot.x.Map(tick.value);
        if (hasGrid)
            svg.AddLine(x, bottom, x, plot.GetTop(), "grid");
        svg.AddLine(x, bottom, x, bottom + c_markLength, "axis");
        svg.AddText(tick.text, x, bottom + c_markLength + 13, "middle");
    }
    svg.AddText(name, (plot.GetLeft() + plot.GetRight()) / 2, bottom + c_markLength + 13 + c_lineHeight,
                "middle");
}

void DrawAxisLeft(CSvg& svg, const SPlot& plot, const SAxis& axis, const CStr& name, bool hasGrid)
{
    const double left = plot.GetLeft();
    for (const STick& tick : axis.ticks) {
        const double y = plot.y.Map(tick.value);
        if (hasGrid)
            svg.AddLine(left, y, plot.GetRight(), y, "grid");
        svg.AddLine(left - c_markLength, y, left, y, "axis");
        svg.AddText(tick.text, left - c_markLength - 3, y + 4.5, "end");
    }
    svg.AddText(name, std::max(2.0, left - LabelWidth(axis) - c_markLength - 3), plot.GetTop() - 10, "start");
}

void DrawFrame(CSvg& svg, const SPlot& plot)
{
    svg.Add("rect", {{"class", "axis"},
                     {"x", plot.GetLeft()},
                     {"y", plot.GetTop()},
                     {"width", plot.GetRight() - plot.GetLeft()},
                     {"height", plot.GetBottom() - plot.GetTop()}});
}

SAxis MakeAxisBelow(CRange<double> range, double room, int most)
{
    SAxis axis = MakeAxis(range, most);
    while (most > 1 && static_cast<double>(axis.ticks.size()) * (LabelWidth(axis) + c_textGap) > room)
        axis = MakeAxis(range, most /= 2);
    return axis;
}

double TextWidth(const CStr& text)
{
    return c_digitWidth * static_cast<double>(text.GetLength());
}

double LabelWidth(const SAxis& axis)
{
    double width = 0;
    for (const STick& tick : axis.ticks)
        width = std::max(width, TextWidth(tick.text));
    return width;
}

void DrawCurve(CSvg& svg, const SPlot& plot, const std::vector<SCurvePoint>& points, std::string_view classes)
{
    CSvgPath path;
    bool isDrawing = false;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const SCurvePoint& point = points[i];
        const bool isValid = !std::isnan(point.y);
        if (isValid && isDrawing)
            path.LineTo(plot.x.Map(point.x), plot.y.Map(point.y));
        else if (isValid) {
            path.MoveTo(plot.x.Map(point.x), plot.y.Map(point.y));
            // A single point is a dot, by the round ends of its line.
            if (i + 1 == points.size() || std::isnan(points[i + 1].y))
                path.LineTo(plot.x.Map(point.x), plot.y.Map(point.y));
        }
        isDrawing = isValid;
    }
    svg.AddPath(path, classes);
}

std::string GetChartStyle()
{
    return std::string(c_style);
}

std::string MakeSvgFile(std::string_view svg)
{
    const std::size_t begin = svg.find('>') + 1; // of what the element holds
    std::string file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    file += svg.substr(0, begin);
    return file + '\n' + GetChartStyle() + std::string(svg.substr(begin));
}

} // namespace CommonUI::Measurement
