#include "analysis/profile/PowerSpectrum.h"

#include "analysis/numeric/FourierTransform.h"
#include "analysis/numeric/HannWindow.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CFourierTransform::CComplex;

constexpr std::size_t c_mostHeights = std::size_t{4} << 20;
// What rounding leaves of a flat line is no wave.
constexpr double c_rounding = 1e-13;

// The sum of the lines' power at each frequency of a transform.
class CLinePower
{
public:
    explicit CLinePower(std::size_t points)
        : m_transform(points)
        , m_values(m_transform.GetSize())
        , m_power(m_transform.GetSize() / 2 + 1)
        , m_weights(MakeHannWindow(points, static_cast<double>(points)))
    {
        for (const double weight : m_weights)
            m_squares += weight * weight;
    }

    void Add(std::span<const double> line)
    {
        double weights = 0;
        double sum = 0;
        double greatest = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (std::isnan(line[i]))
                continue;
            weights += m_weights[i];
            sum += m_weights[i] * line[i];
            greatest = std::max(greatest, std::fabs(line[i]));
        }
        if (!(weights > 0))
            return;
        const double mean = sum / weights;
        std::ranges::fill(m_values, CComplex());
        for (std::size_t i = 0; i < line.size(); ++i) {
            const double z = std::isnan(line[i]) ? 0 : line[i] - mean;
            m_values[i] = std::fabs(z) > c_rounding * greatest ? z * m_weights[i] : 0;
        }
        m_transform.Forward(m_values);
        for (std::size_t k = 0; k < m_power.size(); ++k)
            m_power[k] += std::norm(m_values[k]);
        ++m_lines;
    }

    // For each frequency from the lowest above 0.
    std::vector<SSpectrumPoint> GetDensities(double dx) const
    {
        std::vector<SSpectrumPoint> densities;
        const double unit = 1 / (static_cast<double>(m_transform.GetSize()) * dx);
        for (std::size_t k = 1; k < m_power.size(); ++k) {
            const double sides = k + 1 < m_power.size() ? 2 : 1;
            densities.push_back(
                {.frequency = static_cast<double>(k) * unit,
                 .power = sides * dx * m_power[k] / (m_squares * static_cast<double>(m_lines))});
        }
        return densities;
    }

private:
    CFourierTransform m_transform;
    std::vector<CComplex> m_values;
    std::vector<double> m_power;
    std::vector<double> m_weights;
    double m_squares = 0; // of the weights
    std::size_t m_lines = 0;
};

// The means of bands, each as wide as the others by its ratio and of one frequency at least.
std::vector<SSpectrumPoint> Gather(const std::vector<SSpectrumPoint>& densities, std::size_t most)
{
    if (densities.size() <= most)
        return densities;
    std::vector<SSpectrumPoint> bands;
    const double last = std::log(static_cast<double>(densities.size()));
    std::size_t begin = 0;
    for (std::size_t band = 1; band <= most; ++band) {
        const double share = static_cast<double>(band) / static_cast<double>(most);
        const auto end =
            band == most ? densities.size() : static_cast<std::size_t>(std::lround(std::exp(share * last)));
        if (end <= begin)
            continue;
        SSpectrumPoint mean;
        for (std::size_t k = begin; k < end; ++k) {
            mean.frequency += densities[k].frequency;
            mean.power += densities[k].power;
        }
        const auto count = static_cast<double>(end - begin);
        bands.push_back({.frequency = mean.frequency / count, .power = mean.power / count});
        begin = end;
    }
    return bands;
}

} // namespace

std::vector<SSpectrumPoint> ComputePowerSpectrum(const SSurface& surface, std::size_t mostPoints)
{
    if (surface.points < 4 || surface.lines == 0)
        return {};
    const std::size_t count = std::clamp<std::size_t>(c_mostHeights / surface.points, 1, surface.lines);
    CLinePower power(surface.points);
    for (std::size_t i = 0; i < count; ++i)
        power.Add(surface.GetLine((2 * i + 1) * surface.lines / (2 * count)));
    std::vector<SSpectrumPoint> bands = Gather(power.GetDensities(surface.dx), mostPoints);
    std::erase_if(bands, [](const SSpectrumPoint& band) {
        return !(band.power > 0) || !std::isfinite(band.power) || !std::isfinite(band.frequency);
    });
    return bands;
}

} // namespace CommonUI::Analysis
