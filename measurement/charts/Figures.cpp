#include "measurement/charts/Figures.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::CMaterialRatio;
using Analysis::SCore;
using Analysis::SSpectrumPoint;

namespace
{

constexpr double c_depth = 1e-12; // of the greatest power

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

// The line meets the curve where peaks end and dales begin; where there are none, its height follows from the
// other end.
SMaterialRatioFigure::SConstruction FindLine(const CMaterialRatio& curve, const SCore& core)
{
    if (core.Smr1 > 0) {
        const double top = curve.GetHeight(core.Smr1);
        return {.core = core, .top = top, .bottom = top - core.Sk};
    }
    const double bottom = curve.GetHeight(core.Smr2);
    return {.core = core, .top = bottom + core.Sk, .bottom = bottom};
}

} // namespace

SHistogram ComputeHistogram(const CMaterialRatio& curve)
{
    const auto heights = curve.GetHeights();
    SHistogram histogram{.heights = {heights.back(), heights.front()}};
    histogram.range = MakeRoom(histogram.heights);
    const auto classes =
        static_cast<std::size_t>(std::clamp(std::sqrt(static_cast<double>(heights.size())), 7.0, 128.0));
    histogram.shares = CountClasses(curve, histogram.range, classes);
    histogram.mean = MeanOf(curve);
    return histogram;
}

SMaterialRatioFigure MakeMaterialRatioFigure(const CMaterialRatio& curve, bool isAreal)
{
    const auto heights = curve.GetHeights();
    SMaterialRatioFigure figure{.points = SampleCurve(curve)};
    CRange<double> range{heights.back(), heights.front()};
    const SCore core = curve.ComputeCore();
    if (isAreal && std::isfinite(core.Sk) && std::isfinite(core.Spk) && std::isfinite(core.Svk)) {
        figure.construction = FindLine(curve, core);
        range = range.Including(figure.construction->top + core.Spk)
                    .Including(figure.construction->bottom - core.Svk);
    }
    figure.range = MakeRoom(range);
    return figure;
}

SSpectrumFigure MakeSpectrumFigure(const std::vector<SSpectrumPoint>& spectrum)
{
    const auto [least, greatest] = std::ranges::minmax(spectrum, {}, &SSpectrumPoint::power);
    const double longest = 1 / spectrum.front().frequency;
    const double shortest = 1 / spectrum.back().frequency;
    const CUnit metre(CUnit::EUnitFactor::Unity);
    SSpectrumFigure figure{
        .unit = metre.WithFactor(metre.SuitableFactor(std::sqrt(longest) * std::sqrt(shortest), 1))};
    const double factor = figure.unit.GetFactorValue();
    figure.frequencies = {factor / longest, factor / shortest};
    figure.powers = {std::max(least.power, c_depth * greatest.power) / 1.5, greatest.power * 1.5};
    figure.points.reserve(spectrum.size());
    for (const SSpectrumPoint& point : spectrum)
        figure.points.push_back({point.frequency * factor,
                                 figure.powers.Contains(point.power) ? point.power : Analysis::c_missing});
    return figure;
}

} // namespace CommonUI::Measurement
