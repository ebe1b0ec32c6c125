#include "measurement/charts/HeightCharts.h"

#include "common/NumberText.h"
#include "measurement/charts/detail/ChartFrame.h"
#include "measurement/charts/Figures.h"
#include "measurement/charts/Plot.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::CMaterialRatio;
using Analysis::SCore;
using SConstruction = SMaterialRatioFigure::SConstruction;

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

CBrackets MakeBrackets(const SConstruction& line)
{
    const SCore& core = line.core;
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

void DrawCore(CSvg& svg, const SPlot& plot, const SConstruction& line)
{
    const SCore& core = line.core;
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
    const SHistogram histogram = ComputeHistogram(curve);
    const std::size_t classes = histogram.shares.size();
    const CRange<double> percents{0, 1.05 * *std::ranges::max_element(histogram.shares)};
    const SAxis y = MakeNumberAxis(percents, 6);
    const SPlot plot{.x = {.range = histogram.range, .from = LeftOf(y), .to = c_right},
                     .y = {.range = percents, .from = c_bottom, .to = c_top}};
    CSvg svg(c_width, c_height, u"Histogram of the heights",
             u"Share of the points in each of " + CStr::Format(u"%u", classes) +
                 u" classes of heights from " + LengthLabel(histogram.heights.GetLower()) + u" to " +
                 LengthLabel(histogram.heights.GetUpper()) + u"; mean " + LengthLabel(histogram.mean));
    const SAxis x = MakeAxisBelow(histogram.range, plot.GetRight() - plot.GetLeft(), 8);
    DrawAxisBelow(svg, plot, x, AxisName(u"z", x.unit));
    DrawAxisLeft(svg, plot, y, u"points / %");
    CSvgPath bars;
    bars.MoveTo(plot.GetLeft(), plot.GetBottom());
    for (std::size_t i = 0; i < classes; ++i) {
        const double width = (plot.GetRight() - plot.GetLeft()) / static_cast<double>(classes);
        const double left = plot.GetLeft() + width * static_cast<double>(i);
        bars.LineTo(left, plot.y.Map(histogram.shares[i]));
        bars.LineTo(left + width, plot.y.Map(histogram.shares[i]));
    }
    bars.LineTo(plot.GetRight(), plot.GetBottom());
    bars.Close();
    svg.AddPath(bars, "area");
    DrawFrame(svg, plot);
    MarkHeight(svg, plot, histogram.mean, u"mean", ESide::Left);
    if (threshold)
        MarkHeight(svg, plot, *threshold, u"threshold", ESide::Right);
    return svg.Finish();
}

std::string DrawMaterialRatio(const CMaterialRatio& curve, bool isAreal)
{
    const SMaterialRatioFigure figure = MakeMaterialRatioFigure(curve, isAreal);
    const SAxis y = MakeAxis(figure.range, 7);
    const CBrackets brackets = MakeBrackets(figure.construction.value_or(SConstruction()));
    const SPlot plot{.x = {.range = {0, 100},
                           .from = LeftOf(y),
                           .to = figure.construction ? c_width - RoomOf(brackets) : c_right},
                     .y = {.range = figure.range, .from = c_bottom, .to = c_top}};
    CStr description = u"Height that a share of the points reaches";
    if (figure.construction) {
        const SCore& core = figure.construction->core;
        description += u": core height Sk " + LengthLabel(core.Sk) + u", peaks Spk " + LengthLabel(core.Spk) +
                       u" up to " + PercentText(core.Smr1) + u", dales Svk " + LengthLabel(core.Svk) +
                       u" from " + PercentText(core.Smr2);
    }
    CSvg svg(c_width, c_height, u"Material ratio curve", description);
    DrawAxisBelow(svg, plot, MakeNumberAxis({0, 100}, 5), u"material ratio / %");
    DrawAxisLeft(svg, plot, y, AxisName(u"z", y.unit));
    if (figure.construction)
        DrawCore(svg, plot, *figure.construction);
    DrawCurve(svg, plot, figure.points, "curve");
    DrawFrame(svg, plot);
    if (figure.construction) {
        NameCore(svg, plot, figure.construction->core);
        DrawBrackets(svg, plot, brackets);
    }
    return svg.Finish();
}

} // namespace CommonUI::Measurement
