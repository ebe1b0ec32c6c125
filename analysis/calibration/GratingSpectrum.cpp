#include "analysis/calibration/detail/GratingSpectrum.h"

#include "analysis/form/Levelling.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/numeric/FourierTransform.h"
#include "analysis/numeric/HannWindow.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <span>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = std::complex<double>;

constexpr double c_leastPeriods = 3;         // the half width of the window's main lobe
constexpr double c_leastShare = 0.03 * 0.03; // of the power of the wave that is crossed
constexpr double c_surplus = 4;              // e^-4: how often noise alone is taken for a wave
constexpr double c_turn = 2 * std::numbers::pi;

std::vector<double> MakeWindow(std::size_t count)
{
    std::vector<double> weights = MakeHannWindow(count, static_cast<double>(count));
    for (double& weight : weights)
        weight *= weight;
    return weights;
}

double GetFrequency(std::size_t index, std::size_t size)
{
    const auto k = static_cast<double>(index);
    const auto n = static_cast<double>(size);
    return (index > size / 2 ? k - n : k) / n;
}

// |Σ v[i] exp(-2πi f i)|
double GetMagnitude(std::span<const CComplex> values, double frequency)
{
    const CComplex turn = std::polar(1.0, -c_turn * frequency);
    CComplex sum = 0;
    for (std::size_t i = values.size(); i-- > 0;) { // Horner's scheme
        sum = {sum.real() * turn.real() - sum.imag() * turn.imag() + values[i].real(),
               sum.real() * turn.imag() + sum.imag() * turn.real() + values[i].imag()};
    }
    return std::abs(sum);
}

// The frequency of the greatest magnitude around one: golden section.
double FindMaximum(std::span<const CComplex> values, double around, double reach)
{
    const double section = (std::sqrt(5.0) - 1) / 2;
    constexpr int c_steps = 40; // to 1e-8 of the reach
    double first = around - reach;
    double last = around + reach;
    double left = last - section * (last - first);
    double right = first + section * (last - first);
    double atLeft = GetMagnitude(values, left);
    double atRight = GetMagnitude(values, right);
    for (int i = 0; i < c_steps; ++i) {
        if (atLeft > atRight) {
            last = std::exchange(right, left);
            atRight = atLeft;
            left = last - section * (last - first);
            atLeft = GetMagnitude(values, left);
        } else {
            first = std::exchange(left, right);
            atLeft = atRight;
            right = first + section * (last - first);
            atRight = GetMagnitude(values, right);
        }
    }
    return (first + last) / 2;
}

std::vector<CComplex> MakeTurns(std::size_t count, double frequency)
{
    std::vector<CComplex> turns(count);
    for (std::size_t i = 0; i < count; ++i)
        turns[i] = std::polar(1.0, -c_turn * frequency * static_cast<double>(i));
    return turns;
}

// |V|² of the columns of a transform whose lines are transformed already, for the frequencies from 0 up.
void TransformColumns(std::span<const CComplex> lines, std::size_t count, const CFourierTransform& transform,
                      std::span<double> powers)
{
    const std::size_t width = lines.size() / count;
    const std::size_t rows = powers.size() / width;
    ComputeInShares(width, [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> column(transform.GetSize());
        for (std::size_t x = first; x < last; ++x) {
            for (std::size_t y = 0; y < column.size(); ++y)
                column[y] = y < count ? lines[y * width + x] : 0;
            transform.Forward(column);
            for (std::size_t y = 0; y < rows; ++y)
                powers[y * width + x] = std::norm(column[y]);
        }
    });
}

} // namespace

CGratingSpectrum::CGratingSpectrum(const SSurface& surface)
    : m_points(surface.points)
    , m_lines(surface.lines)
    , m_dx(surface.dx)
    , m_dy(surface.dy)
{
    SSurface level = surface;
    Level(level, ELevelling::Plane);
    m_heights = std::move(level.heights);
    const std::vector<double> alongX = MakeWindow(m_points);
    const std::vector<double> alongY = MakeWindow(m_lines);
    for (std::size_t i = 0; i < m_heights.size(); ++i) {
        double& z = m_heights[i];
        z = std::isnan(z) ? 0 : z * alongX[i % m_points] * alongY[i / m_points];
        m_noise += z * z;
    }
    const CFourierTransform transformX(m_points);
    const CFourierTransform transformY(m_lines);
    m_width = transformX.GetSize();
    m_height = transformY.GetSize();
    std::vector<CComplex> lines(m_width * m_lines);
    ComputeInShares(m_lines, [&](std::size_t first, std::size_t last) {
        for (std::size_t y = first; y < last; ++y) {
            const auto line = std::span(lines).subspan(y * m_width, m_width);
            std::copy_n(&m_heights[y * m_points], m_points, line.begin());
            transformX.Forward(line);
        }
    });
    m_powers.resize(m_width * (m_height / 2 + 1));
    TransformColumns(lines, m_lines, transformY, m_powers);
}

bool CGratingSpectrum::IsSought(SWave wave, const std::optional<SWave>& across) const
{
    const double periods =
        std::hypot(wave.x * static_cast<double>(m_points), wave.y * static_cast<double>(m_lines));
    if (periods < c_leastPeriods)
        return false;
    if (!across)
        return true;
    const double x = wave.x / m_dx;
    const double y = wave.y / m_dy;
    return std::fabs(across->x * y - across->y * x) >=
           0.5 * std::hypot(x, y) * std::hypot(across->x, across->y);
}

double CGratingSpectrum::GetPower(std::size_t x, std::size_t y) const
{
    return m_powers[std::min(y, m_height - y) * m_width + (y > m_height / 2 ? (m_width - x) % m_width : x)];
}

// The slope of a wave that is not sought has power there, too, but no peak.
bool CGratingSpectrum::IsPeak(std::size_t x, std::size_t y) const
{
    const double power = GetPower(x, y);
    for (const std::size_t j : {m_height - 1, std::size_t{0}, std::size_t{1}})
        for (const std::size_t i : {m_width - 1, std::size_t{0}, std::size_t{1}})
            if (GetPower((x + i) % m_width, (y + j) % m_height) > power)
                return false;
    return true;
}

CGratingSpectrum::SPeak CGratingSpectrum::FindPeak(const std::optional<SWave>& across) const
{
    SPeak peak;
    for (std::size_t i = 0; i < m_powers.size(); ++i) {
        const SWave wave{GetFrequency(i % m_width, m_width), GetFrequency(i / m_width, m_height)};
        if (m_powers[i] > peak.power && IsSought(wave, across) && IsPeak(i % m_width, i / m_width))
            peak = {m_powers[i], wave};
    }
    return peak;
}

// The window is that of x times that of y, so that a few turns between both directions are enough.
SWave CGratingSpectrum::Refine(SWave wave) const
{
    constexpr int c_rounds = 3;
    std::vector<CComplex> alongX(m_points);
    std::vector<CComplex> alongY(m_lines);
    for (int round = 0; round < c_rounds; ++round) {
        const std::vector<CComplex> turnsY = MakeTurns(m_lines, wave.y);
        std::ranges::fill(alongX, 0);
        for (std::size_t i = 0; i < m_heights.size(); ++i)
            alongX[i % m_points] += m_heights[i] * turnsY[i / m_points];
        wave.x = FindMaximum(alongX, wave.x, 1 / static_cast<double>(m_points));
        if (m_lines == 1)
            break;
        const std::vector<CComplex> turnsX = MakeTurns(m_points, wave.x);
        std::ranges::fill(alongY, 0);
        for (std::size_t i = 0; i < m_heights.size(); ++i)
            alongY[i / m_points] += m_heights[i] * turnsX[i % m_points];
        wave.y = FindMaximum(alongY, wave.y, 1 / static_cast<double>(m_lines));
    }
    return wave;
}

std::optional<SWave> CGratingSpectrum::FindWave(std::optional<SWave> across) const
{
    const SPeak peak = FindPeak(across);
    const double least = m_noise * (std::log(static_cast<double>(m_heights.size())) + c_surplus);
    if (!(peak.power > least) || (across && peak.power < c_leastShare * FindPeak({}).power))
        return {};
    const SWave wave = Refine(peak.wave);
    return SWave{wave.x / m_dx, wave.y / m_dy};
}

} // namespace CommonUI::Analysis
