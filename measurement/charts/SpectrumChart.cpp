#include "measurement/charts/SpectrumChart.h"

#include "measurement/charts/detail/ChartFrame.h"
#include "measurement/charts/Figures.h"

#include <algorithm>

namespace CommonUI::Measurement
{

using Analysis::SSpectrumPoint;

std::string DrawSpectrum(const std::vector<SSpectrumPoint>& spectrum)
{
    if (spectrum.size() < 2)
        return {};
    const SSpectrumFigure figure = MakeSpectrumFigure(spectrum);
    const CRange<double>& frequencies = figure.frequencies;
    const CRange<double>& powers = figure.powers;
    const SAxis y = MakeLogarithmicAxis(powers, 8);
    const SPlot plot{
        .x = {.range = frequencies,
              .from = c_markRoom + std::max(44.0, LabelWidth(y)),
              .to = c_right,
              .isLogarithmic = true},
        .y = {.range = powers, .from = c_bottom, .to = c_top, .isLogarithmic = true},
    };
    CSvg svg(c_width, c_height, u"Power spectrum",
             u"Mean power spectral density of the lines for wavelengths from " +
                 LengthLabel(1 / spectrum.front().frequency) + u" to " +
                 LengthLabel(1 / spectrum.back().frequency));
    DrawAxisBelow(svg, plot, MakeLogarithmicAxis(frequencies, 9),
                  AxisName(u"frequency", figure.unit.GetText() + u"⁻¹"));
    DrawAxisLeft(svg, plot, y, u"power / m³");
    DrawCurve(svg, plot, figure.points, "curve");
    DrawFrame(svg, plot);
    return svg.Finish();
}

} // namespace CommonUI::Measurement
