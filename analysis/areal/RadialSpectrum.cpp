#include "analysis/areal/detail/RadialSpectrum.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_stepsPerWidth = 8;
constexpr double c_reach = 4; // of the weights to either side, in their widths
constexpr double c_bandsPerOctave = 4;
constexpr double c_many = 100; // frequencies of a band

// Means under normal weights.
// @param width in values
std::vector<double> Smooth(const std::vector<double>& values, double width)
{
    const auto reach = static_cast<std::size_t>(c_reach * width);
    std::vector<double> weights(2 * reach + 1);
    for (std::size_t i = 0; i < weights.size(); ++i)
        weights[i] =
            std::exp(-std::pow((static_cast<double>(i) - static_cast<double>(reach)) / width, 2) / 2);
    std::vector<double> smooth(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        for (std::size_t k = i - std::min(i, reach); k < std::min(values.size(), i + reach + 1); ++k)
            smooth[i] += weights[k + reach - i] * values[k];
    return smooth;
}

} // namespace

SRadialParameters ComputeRadialParameters(const CPowerSpectrum& spectrum)
{
    const double width = spectrum.GetLowest();
    const double step = width / c_stepsPerWidth;
    const auto count = static_cast<std::size_t>(std::ceil((spectrum.GetHighest() + c_reach * width) / step));
    std::vector<double> radial = Smooth(spectrum.SumCircles(step, count).power, c_stepsPerWidth);

    const auto first = static_cast<std::size_t>(c_stepsPerWidth);
    const auto last = static_cast<std::size_t>(spectrum.GetHighest() / step);
    radial.resize(last + 1);
    radial.erase(radial.begin(), radial.begin() + static_cast<std::ptrdiff_t>(first));
    const double greatest = *std::max_element(radial.begin(), radial.end());
    if (!(greatest > 0))
        return {};
    const double mean =
        std::accumulate(radial.begin(), radial.end(), 0.0) / static_cast<double>(radial.size());
    return {.wavelength = 1 / ((FindMaximum(radial, false) + c_stepsPerWidth) * step),
            .index = mean / greatest};
}

double ComputeFractalDimension(const CPowerSpectrum& spectrum)
{
    const double lowest = 4 * spectrum.GetLowest();
    const double highest = spectrum.GetHighest() / 2;
    if (highest < 2 * lowest)
        return c_undefined;
    const double step = spectrum.GetLowest() / c_stepsPerWidth;
    const auto radial = spectrum.SumCircles(step, static_cast<std::size_t>(highest / step) + 1);

    struct SBand {
        double power = 0;
        double count = 0;
        double logarithms = 0; // of the frequencies
    };
    std::vector<SBand> bands(static_cast<std::size_t>(std::log2(highest / lowest) * c_bandsPerOctave));
    for (std::size_t i = 1; i < radial.power.size(); ++i) {
        const double frequency = static_cast<double>(i) * step;
        const double place = std::log2(frequency / lowest) * c_bandsPerOctave;
        if (place < 0 || place >= static_cast<double>(bands.size()))
            continue;
        SBand& band = bands[static_cast<std::size_t>(place)];
        band.power += radial.power[i];
        band.count += radial.counts[i];
        band.logarithms += radial.counts[i] * std::log(frequency);
    }
    double n = 0, x = 0, y = 0, xx = 0, xy = 0;
    for (const SBand& band : bands) {
        if (!(band.power > 0))
            continue;
        const double atX = band.logarithms / band.count;
        const double atY = std::log(band.power / band.count);
        // A mean of few is uncertain, and one of many no better than the law is kept.
        const double weight = band.count / (band.count + c_many);
        n += weight;
        x += weight * atX;
        y += weight * atY;
        xx += weight * atX * atX;
        xy += weight * atX * atY;
    }
    const double slope = (n * xy - x * y) / (n * xx - x * x);
    return std::clamp(4 + slope / 2, 2.0, 3.0);
}

} // namespace CommonUI::Analysis
