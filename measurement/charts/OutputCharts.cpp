#include "measurement/charts/OutputCharts.h"

#include "measurement/charts/detail/ChartFrame.h"
#include "measurement/charts/Plot.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace CommonUI::Measurement
{

namespace
{

constexpr int c_intervals = 7;

SAxis MakeAxisOf(CRange<double> range, bool isLength)
{
    return isLength ? MakeAxis(range, c_intervals) : MakeNumberAxis(range, c_intervals);
}

CStr NameOf(const CStr& label, const SAxis& axis)
{
    return axis.unit.IsEmpty() ? label : AxisName(label, axis.unit);
}

CRange<double> RangeOf(const SOutputCurve& curve, double std::pair<double, double>::*coordinate)
{
    const auto [least, greatest] = std::ranges::minmax_element(curve.points, {}, coordinate);
    return MakeRoom({(*least).*coordinate, (*greatest).*coordinate});
}

} // namespace

std::string DrawOutputCurve(const SOutputCurve& curve)
{
    if (curve.points.size() < 2)
        return {};
    const CRange<double> right = RangeOf(curve, &std::pair<double, double>::first);
    CRange<double> up = RangeOf(curve, &std::pair<double, double>::second);
    const double room = up.GetLength() / 20;
    up = {up.GetLower() - room, up.GetUpper() + room};
    const SAxis x = MakeAxisOf(right, curve.isLengthX);
    const SAxis y = MakeAxisOf(up, curve.isLengthY);
    const SPlot plot{.x = {.range = right, .from = c_markRoom + std::max(38.0, LabelWidth(y)), .to = c_right},
                     .y = {.range = up, .from = c_bottom, .to = c_top}};
    CSvg svg(c_width, c_height, curve.name, CStr::Format(u"%u points", curve.points.size()));
    DrawAxisBelow(svg, plot, x, NameOf(curve.labelX, x));
    DrawAxisLeft(svg, plot, y, NameOf(curve.labelY, y));
    // Of very many points the page has as many as it shows.
    const std::size_t step =
        std::max<std::size_t>(1, curve.points.size() / static_cast<std::size_t>(4 * c_width));
    std::vector<SCurvePoint> points;
    for (std::size_t i = 0; i < curve.points.size(); i += step)
        points.push_back({curve.points[i].first, curve.points[i].second});
    DrawCurve(svg, plot, points, "curve");
    DrawFrame(svg, plot);
    return svg.Finish();
}

} // namespace CommonUI::Measurement
