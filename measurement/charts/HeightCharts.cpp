#include "measurement/charts/HeightCharts.h"

#include "common/NumberText.h"
#include "measurement/charts/detail/ChartFrame.h"
#include "measurement/charts/Plot.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::CMaterialRatio;
using Analysis::SCore;

namespace
{

constexpr double c_bracketRoom = 19; // between the curve and the values to its right

double LeftOf(const SAxis& axis)
{
    return c_markRoom + std::max(38.0, LabelWidth(axis));
}

CStr PercentText(double percent)
{
    const CNumberText text(percent, {.conversion = 'g', .precision = 3});
    return CStr::FromAscii(text.View()) + u" %";
}

// The share of the heights in each of some classes of a range, in percent.
std::vector<double> CountClasses(const CMaterialRatio& curve, CRange<double> range, std::size_t classes)
{
    const auto heights = curve.GetHeights(); // falling
    std::vector<double> shares(classes);
    std::size_t above = heights.size(); // how many lie at or above the lower bound of the class
    for (std::size_t i = 0; i < classes; ++i) {
        const double bound =
            range.GetLower() + range.GetLength() * static_cast<double>(i + 1) / static_cast<double>(classes);
        const auto end =
            std::ranges::partition_point(heights, [&](double height) { return height >= bound; });
        const std::size_t next = i + 1 == classes ? 0 : static_cast<std::size_t>(end - heights.begin());
        shares[i] = 100 * static_cast<double>(above - next) / static_cast<double>(heights.size());
        above = next;
    }
    return shares;
}

double MeanOf(const CMaterialRatio& curve)
{
    double mean = 0;
    const auto heights = curve.GetHeights();
    for (const double height : heights)
        mean += (height - heights.front()) / static_cast<double>(heights.size());
    return heights.front() + mean;
}

enum class ESide { Left, Right };

// A line with its name on one side, on the other one where it would leave the plot.
void MarkHeight(CSvg& svg, const SPlot& plot, double height, const CStr& name, ESide side)
{
    if (!plot.x.range.Contains(height))
        return;
    const double x = plot.x.Map(height);
    const double room = TextWidth(name) + 5;
    const bool isLeft = x + room > plot.GetRight() || (side == ESide::Left && x - room > plot.GetLeft());
    svg.AddLine(x, plot.GetTop(), x, plot.GetBottom(), "mark");
    svg.AddText(name, isLeft ? x - 5 : x + 5, plot.GetTop() + (side == ESide::Left ? 16 : 34),
                isLeft ? "end note" : "start note");
}

// The curve, with more points near its ends, where it is steepest.
std::vector<SCurvePoint> SampleCurve(const CMaterialRatio& curve)
{
    constexpr int c_steps = 256;
    std::vector<SCurvePoint> points;
    for (int i = 0; i <= c_steps; ++i) {
        const double share = static_cast<double>(i) / c_steps;
        const double percent = 100 * share * share * (3 - 2 * share);
        points.push_back({percent, curve.GetHeight(percent)});
    }
    return points;
}

// The straight line of a core, drawn from its heights at 0 % and 100 %.
struct SCoreLine {
    double top = 0;
    double bottom = 0;
};

// The line meets the curve where peaks end and dales begin; where there are none, its height follows from the
// other end.
SCoreLine FindLine(const CMaterialRatio& curve, const SCore& core)
{
    if (core.Smr1 > 0) {
        const double top = curve.GetHeight(core.Smr1);
        return {.top = top, .bottom = top - core.Sk};
    }
    const double bottom = curve.GetHeight(core.Smr2);
    return {.top = bottom + core.Sk, .bottom = bottom};
}

void DrawTriangle(CSvg& svg, const SPlot& plot, double from, double to, double base, double tip)
{
    CSvgPath path;
    path.MoveTo(plot.x.Map(from), plot.y.Map(base));
    path.LineTo(plot.x.Map(to), plot.y.Map(base));
    path.LineTo(plot.x.Map(from), plot.y.Map(tip));
    path.Close();
    svg.AddPath(path, "part");
}

// A height with its value, to the right of the plot.
struct SBracket {
    CStr text{};
    double from = 0;
    double to = 0;
};

using CBrackets = std::array<SBracket, 3>;

CBrackets MakeBrackets(const SCoreLine& line, const SCore& core)
{
    return {SBracket{u"Spk " + LengthLabel(core.Spk), line.top + core.Spk, line.top},
            SBracket{u"Sk " + LengthLabel(core.Sk), line.top, line.bottom},
            SBracket{u"Svk " + LengthLabel(core.Svk), line.bottom, line.bottom - core.Svk}};
}

double RoomOf(const CBrackets& brackets)
{
    double room = 0;
    for (const SBracket& bracket : brackets)
        room = std::max(room, c_bracketRoom + TextWidth(bracket.text));
    return room;
}

void DrawBrackets(CSvg& svg, const SPlot& plot, const CBrackets& brackets)
{
    const double x = plot.GetRight() + c_bracketRoom - 9;
    double lowest = plot.GetTop();
    for (const SBracket& bracket : brackets) {
        const double from = plot.y.Map(bracket.from);
        const double to = plot.y.Map(bracket.to);
        CSvgPath path;
        path.MoveTo(x - 4, from);
        path.LineTo(x + 4, from);
        path.MoveTo(x, from);
        path.LineTo(x, to);
        path.MoveTo(x - 4, to);
        path.LineTo(x + 4, to);
        svg.AddPath(path, "axis");
        const double y = std::max(lowest, (from + to) / 2 + 4.5); // none over another
        svg.AddText(bracket.text, x + 9, y, "start");
        lowest = y + 16;
    }
}

void DrawCore(CSvg& svg, const SPlot& plot, const SCoreLine& line, const SCore& core)
{
    DrawTriangle(svg, plot, 0, core.Smr1, line.top, line.top + core.Spk);
    DrawTriangle(svg, plot, 100, core.Smr2, line.bottom, line.bottom - core.Svk);
    const auto drawLevel = [&](double height, double ratio) {
        const double y = plot.y.Map(height);
        svg.AddLine(plot.GetLeft(), y, plot.GetRight(), y, "mark");
        const double x = plot.x.Map(ratio);
        svg.AddLine(x, y, x, plot.GetBottom(), "mark");
    };
    drawLevel(line.top, core.Smr1);
    drawLevel(line.bottom, core.Smr2);
    DrawCurve(svg, plot, {{0, line.top}, {100, line.bottom}}, "second");
}

void NameCore(CSvg& svg, const SPlot& plot, const SCore& core)
{
    const double low = plot.GetBottom() - 7;
    svg.AddText(u"Smr1 " + PercentText(core.Smr1), plot.x.Map(core.Smr1) + 5, low, "start note");
    svg.AddText(u"Smr2 " + PercentText(core.Smr2), plot.x.Map(core.Smr2) - 5, low, "end note");
}

} // namespace

std::string DrawHistogram(const CMaterialRatio& curve, std::optional<double> threshold)
{
    const auto heights = curve.GetHeights();
    const CRange<double> range = MakeRoom({heights.back(), heights.front()});
    const auto classes =
        static_cast<std::size_t>(std::clamp(std::sqrt(static_cast<double>(heights.size())), 7.0, 128.0));
    const std::vector<double> shares = CountClasses(curve, range, classes);
    const CRange<double> percents{0, 1.05 * *std::ranges::max_element(shares)};
    const SAxis y = MakeNumberAxis(percents, 6);
    const SPlot plot{.x = {.range = range, .from = LeftOf(y), .to = c_right},
                     .y = {.range = percents, .from = c_bottom, .to = c_top}};
    const double mean = MeanOf(curve);
    CSvg svg(c_width, c_height, u"Histogram of the heights",
             u"Share of the points in each of " + CStr::Format(u"%u", classes) +
                 u" classes of heights from " + LengthLabel(heights.back()) + u" to " +
                 LengthLabel(heights.front()) + u"; mean " + LengthLabel(mean));
    const SAxis x = MakeAxisBelow(range, plot.GetRight() - plot.GetLeft(), 8);
    DrawAxisBelow(svg, plot, x, AxisName(u"z", x.unit));
    DrawAxisLeft(svg, plot, y, u"points / %");
    CSvgPath bars;
    bars.MoveTo(plot.GetLeft(), plot.GetBottom());
    for (std::size_t i = 0; i < classes; ++i) {
        const double width = (plot.GetRight() - plot.GetLeft()) / static_cast<double>(classes);
        const double left = plot.GetLeft() + width * static_cast<double>(i);
        bars.LineTo(left, plot.y.Map(shares[i]));
        bars.LineTo(left + width, plot.y.Map(shares[i]));
    }
    bars.LineTo(plot.GetRight(), plot.GetBottom());
    bars.Close();
    svg.AddPath(bars, "area");
    DrawFrame(svg, plot);
    MarkHeight(svg, plot, mean, u"mean", ESide::Left);
    if (threshold)
        MarkHeight(svg, plot, *threshold, u"threshold", ESide::Right);
    return svg.Finish();
}

std::string DrawMaterialRatio(const CMaterialRatio& curve, bool isAreal)
{
    const auto heights = curve.GetHeights();
    const SCore core = curve.ComputeCore();
    const bool hasCore =
        isAreal && std::isfinite(core.Sk) && std::isfinite(core.Spk) && std::isfinite(core.Svk);
    const SCoreLine line = hasCore ? FindLine(curve, core) : SCoreLine();
    CRange<double> range{heights.back(), heights.front()};
    if (hasCore)
        range = range.Including(line.top + core.Spk).Including(line.bottom - core.Svk);
    range = MakeRoom(range);
    const SAxis y = MakeAxis(range, 7);
    const CBrackets brackets = MakeBrackets(line, core);
    const SPlot plot{
        .x = {.range = {0, 100}, .from = LeftOf(y), .to = hasCore ? c_width - RoomOf(brackets) : c_right},
        .y = {.range = range, .from = c_bottom, .to = c_top}};
    CStr description = u"Height that a share of the points reaches";
    if (hasCore)
        description += u": core height Sk " + LengthLabel(core.Sk) + u", peaks Spk " + LengthLabel(core.Spk) +
                       u" up to " + PercentText(core.Smr1) + u", dales Svk " + LengthLabel(core.Svk) +
                       u" from " + PercentText(core.Smr2);
    CSvg svg(c_width, c_height, u"Material ratio curve", description);
    DrawAxisBelow(svg, plot, MakeNumberAxis({0, 100}, 5), u"material ratio / %");
    DrawAxisLeft(svg, plot, y, AxisName(u"z", y.unit));
    if (hasCore)
        DrawCore(svg, plot, line, core);
    DrawCurve(svg, plot, SampleCurve(curve), "curve");
    DrawFrame(svg, plot);
    if (hasCore) {
        NameCore(svg, plot, core);
        DrawBrackets(svg, plot, brackets);
    }
    return svg.Finish();
}

} // namespace CommonUI::Measurement
