#include "measurement/charts/ValueCharts.h"

#include "measurement/charts/Curve.h"
#include "measurement/charts/detail/ChartFrame.h"
#include "measurement/charts/Plot.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace CommonUI::Measurement
{

namespace
{

// Values as they are shown, without those that are not defined.
struct SShown {
    std::vector<double> values{};
    CRange<double> range{};
    double mean = 0;
};

SShown ShownValues(const SColumn& column, std::span<const double> values)
{
    SShown shown;
    const double factor = column.parameter.CalcFactor();
    for (const double value : values) {
        if (std::isfinite(value * factor))
            shown.values.push_back(value * factor);
    }
    if (shown.values.empty())
        return shown;
    const auto [least, greatest] = std::ranges::minmax(shown.values);
    shown.range = {least, greatest};
    for (const double value : shown.values)
        shown.mean += value / static_cast<double>(shown.values.size());
    return shown;
}

CStr NameOf(const SColumn& column)
{
    return AxisName(column.parameter.GetShortFriendlyString(), column.GetUnitText());
}

CStr Described(const SColumn& column, const SShown& shown)
{
    const double factor = column.parameter.CalcFactor();
    const auto text = [&](double value) { return column.GetText(value / factor); };
    return CStr::Format(u"%u values from ", shown.values.size()) + text(shown.range.GetLower()) + u" to " +
           text(shown.range.GetUpper()) + u" " + column.GetUnitText() + u"; mean " + text(shown.mean);
}

double LeftOf(const SAxis& axis)
{
    return c_markRoom + std::max(38.0, LabelWidth(axis));
}

std::vector<double> CountClasses(const SShown& shown, CRange<double> range, std::size_t classes)
{
    std::vector<double> shares(classes);
    for (const double value : shown.values) {
        const double place = (value - range.GetLower()) / range.GetLength() * static_cast<double>(classes);
        shares[std::min(classes - 1, static_cast<std::size_t>(place))] +=
            100 / static_cast<double>(shown.values.size());
    }
    return shares;
}

} // namespace

std::string DrawValueHistogram(const SColumn& column, std::span<const double> values)
{
    const SShown shown = ShownValues(column, values);
    if (shown.values.empty())
        return {};
    const CRange<double> range = MakeRoom(shown.range);
    const auto classes =
        static_cast<std::size_t>(std::clamp(std::sqrt(static_cast<double>(shown.values.size())), 5.0, 32.0));
    const std::vector<double> shares = CountClasses(shown, range, classes);
    const CRange<double> percents{0, 1.05 * std::ranges::max(shares)};
    const SAxis y = MakeNumberAxis(percents, 6);
    const SPlot plot{.x = {.range = range, .from = LeftOf(y), .to = c_right},
                     .y = {.range = percents, .from = c_bottom, .to = c_top}};
    CSvg svg(c_width, c_height, u"Histogram of " + column.parameter.GetShortFriendlyString(),
             Described(column, shown));
    DrawAxisBelow(svg, plot, MakeNumberAxis(range, 7), NameOf(column));
    DrawAxisLeft(svg, plot, y, u"share / %");
    const double width = (plot.GetRight() - plot.GetLeft()) / static_cast<double>(classes);
    for (std::size_t i = 0; i < classes; ++i) {
        const double top = plot.y.Map(shares[i]);
        svg.Add("rect", {{"class", "area"},
                         {"x", plot.GetLeft() + width * static_cast<double>(i) + 0.5},
                         {"y", top},
                         {"width", width - 1},
                         {"height", plot.GetBottom() - top}});
    }
    DrawFrame(svg, plot);
    const double mean = plot.x.Map(shown.mean);
    const bool isLeft = mean > (plot.GetLeft() + plot.GetRight()) / 2;
    svg.AddLine(mean, plot.GetTop(), mean, plot.GetBottom(), "mark");
    svg.AddText(u"mean", isLeft ? mean - 5 : mean + 5, plot.GetTop() + 16,
                isLeft ? "end note" : "start note");
    return svg.Finish();
}

std::string DrawValuesOverRows(const SColumn& column, std::span<const double> values, const CStr& rowName)
{
    const SShown shown = ShownValues(column, values);
    if (shown.values.size() < 2)
        return {};
    CRange<double> range = MakeRoom(shown.range);
    const double room = range.GetLength() / 20;
    range = {range.GetLower() - room, range.GetUpper() + room};
    const SAxis y = MakeNumberAxis(range, 7);
    const CRange<double> rows{1, static_cast<double>(values.size())};
    const SPlot plot{.x = {.range = rows, .from = LeftOf(y), .to = c_right},
                     .y = {.range = range, .from = c_bottom, .to = c_top}};
    CSvg svg(c_width, c_height, column.parameter.GetShortFriendlyString() + u" over the " + rowName + u"s",
             Described(column, shown));
    DrawAxisBelow(svg, plot, MakeNumberAxis(rows, static_cast<int>(std::min(8.0, rows.GetLength()))),
                  rowName);
    DrawAxisLeft(svg, plot, y, NameOf(column));
    svg.AddLine(plot.GetLeft(), plot.y.Map(shown.mean), plot.GetRight(), plot.y.Map(shown.mean), "mark");
    std::vector<SCurvePoint> points;
    for (const SSample& sample : ThinOut(values, static_cast<std::size_t>(c_width)))
        points.push_back(
            {static_cast<double>(sample.index + 1), sample.height * column.parameter.CalcFactor()});
    DrawCurve(svg, plot, points, "curve");
    DrawFrame(svg, plot);
    return svg.Finish();
}

} // namespace CommonUI::Measurement
