#include "analysis/areal/Autocorrelation.h"

#include "analysis/areal/detail/LineSpectra.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CLineSpectra::CComplex;

constexpr std::size_t c_none = static_cast<std::size_t>(-1); // no line

// From the spectra of the lines to those of the lines of the autocorrelation, for the first shifts in y. The
// size of the transform along y keeps what comes round away from them.
void CorrelateColumns(CLineSpectra& spectra, std::size_t shifts)
{
    const CFourierTransform transform(spectra.GetLines() + shifts - 1);
    ComputeInShares(spectra.GetWidth(), [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> column(transform.GetSize());
        for (std::size_t i = first; i < last; ++i) {
            spectra.GetColumn(i, column);
            transform.Forward(column);
            for (CComplex& value : column)
                value = std::norm(value);
            transform.Inverse(column);
            spectra.SetColumn(i, std::span(column).first(shifts));
        }
    });
}

// The shifts 0 … reach, the greater the fewer, so that directions to them are about a quarter of a degree
// apart.
std::vector<double> SelectShifts(std::size_t reach)
{
    std::vector<double> shifts;
    for (std::size_t i = 0; i < reach; i += std::max<std::size_t>(1, i / 256))
        shifts.push_back(static_cast<double>(i));
    shifts.push_back(static_cast<double>(reach));
    return shifts;
}

} // namespace

CAutocorrelation::CAutocorrelation(const SSurface& surface, double mean)
    : m_reachX(surface.points / 2)
    , m_reachY(surface.lines / 2)
    , m_dx(surface.dx)
    , m_dy(surface.dy)
{
    if (m_reachX == 0 || m_reachY == 0)
        return;
    CLineSpectra spectra(surface, mean, surface.points + m_reachX, CLineSpectra::ETaper::None);
    CorrelateColumns(spectra, m_reachY + 1);

    const std::size_t width = 2 * m_reachX + 1;
    m_values.resize(width * (m_reachY + 1));
    ComputeInShares(m_reachY / 2 + 1, [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> pair(spectra.GetSize());
        for (std::size_t y = 2 * first; y < 2 * last; y += 2) {
            spectra.TransformBack(y, y < m_reachY ? y + 1 : c_none, pair);
            for (std::size_t i = 0; i < width; ++i) {
                const std::size_t shift = i < m_reachX ? m_reachX - i : i - m_reachX;
                const CComplex sums = pair[i < m_reachX ? pair.size() - shift : shift];
                const auto overlap = static_cast<double>(surface.points - shift);
                m_values[y * width + i] = sums.real() / (overlap * static_cast<double>(surface.lines - y));
                if (y < m_reachY)
                    m_values[(y + 1) * width + i] =
                        sums.imag() / (overlap * static_cast<double>(surface.lines - y - 1));
            }
        }
    });
    const double unshifted = m_values[m_reachX];
    for (double& value : m_values)
        value /= unshifted; // 0 / 0 for a flat surface
}

double CAutocorrelation::GetValue(double x, double y) const
{
    const double column = x + static_cast<double>(m_reachX);
    const auto i = static_cast<std::size_t>(column);
    const auto j = static_cast<std::size_t>(y);
    const double restX = column - static_cast<double>(i);
    const double restY = y - static_cast<double>(j);
    const auto interpolate = [&](std::size_t row) {
        const double* const value = &m_values[row * (2 * m_reachX + 1) + i];
        return restX > 0 ? value[0] + restX * (value[1] - value[0]) : value[0];
    };
    const double value = interpolate(j);
    return restY > 0 ? value + restY * (interpolate(j + 1) - value) : value;
}

// The distance on the way to a border shift; NaN if the level is not reached.
double CAutocorrelation::FindDecay(double x, double y, double level) const
{
    const double steps = std::max(std::fabs(x), y);
    const auto count = static_cast<std::size_t>(steps);
    double before = 1;
    for (std::size_t i = 1; i <= count; ++i) {
        const double share = static_cast<double>(i) / steps;
        const double value = GetValue(x * share, y * share);
        if (value <= level) {
            const double position = static_cast<double>(i - 1) + (before - level) / (before - value);
            return position / steps * std::hypot(x * m_dx, y * m_dy);
        }
        before = value;
    }
    return c_undefined;
}

SDecay CAutocorrelation::ComputeDecay(double level) const
{
    if (m_values.empty() || std::isnan(m_values.front()))
        return {};
    const auto reachX = static_cast<double>(m_reachX);
    const auto reachY = static_cast<double>(m_reachY);
    std::vector<double> distances;
    const auto add = [&](double x, double y) {
        distances.push_back(FindDecay(x, y, level));
        distances.push_back(FindDecay(-x, y, level));
    };
    for (const double y : SelectShifts(m_reachY))
        add(reachX, y);
    for (const double x : SelectShifts(m_reachX))
        add(x, reachY);

    const auto isReached = [](double distance) { return !std::isnan(distance); };
    const auto unreached = std::partition(distances.begin(), distances.end(), isReached);
    if (unreached == distances.begin())
        return {};
    const auto [shortest, longest] = std::minmax_element(distances.begin(), unreached);
    return {.shortest = *shortest, .longest = unreached == distances.end() ? *longest : c_undefined};
}

} // namespace CommonUI::Analysis
