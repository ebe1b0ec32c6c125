#include "measurement/charts/SpectrumChart.h"

#include "common/Unit.h"
#include "measurement/charts/detail/ChartFrame.h"
#include "measurement/charts/Plot.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::SSpectrumPoint;

namespace
{

constexpr double c_depth = 1e-12; // of the greatest power; below is rounding

} // namespace

std::string DrawSpectrum(const std::vector<SSpectrumPoint>& spectrum)
{
    if (spectrum.size() < 2)
        return {};
    const auto [least, greatest] = std::ranges::minmax(spectrum, {}, &SSpectrumPoint::power);
    const double longest = 1 / spectrum.front().frequency;
    const double shortest = 1 / spectrum.back().frequency;
    const CUnit metre(CUnit::EUnitFactor::Unity);
    const CUnit unit = metre.WithFactor(metre.SuitableFactor(std::sqrt(longest) * std::sqrt(shortest), 1));
    const double factor = unit.GetFactorValue(); // m in the unit whose inverse the frequencies are shown in
    const CRange<double> frequencies{factor / longest, factor / shortest};
    const CRange<double> powers{std::max(least.power, c_depth * greatest.power) / 1.5, greatest.power * 1.5};
    const SAxis y = MakeLogarithmicAxis(powers, 8);
    const SPlot plot{
        .x = {.range = frequencies,
              .from = c_markRoom + std::max(44.0, LabelWidth(y)),
              .to = c_right,
              .isLogarithmic = true},
        .y = {.range = powers, .from = c_bottom, .to = c_top, .isLogarithmic = true},
    };
    CSvg svg(c_width, c_height, u"Power spectrum",
             u"Mean power spectral density of the lines for wavelengths from " + LengthLabel(longest) +
                 u" to " + LengthLabel(shortest));
    DrawAxisBelow(svg, plot, MakeLogarithmicAxis(frequencies, 9),
                  AxisName(u"frequency", unit.GetText() + u"⁻¹"));
    DrawAxisLeft(svg, plot, y, u"power / m³");
    std::vector<SCurvePoint> points;
    points.reserve(spectrum.size());
    for (const SSpectrumPoint& point : spectrum)
        points.push_back(
            {point.frequency * factor, powers.Contains(point.power) ? point.power : Analysis::c_missing});
    DrawCurve(svg, plot, points, "curve");
    DrawFrame(svg, plot);
    return svg.Finish();
}

} // namespace CommonUI::Measurement
