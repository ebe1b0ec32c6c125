#include "analysis/areal/detail/TextureDirection.h"

#include "analysis/areal/detail/LineSpectra.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/surface/Value.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CLineSpectra::CComplex;

constexpr std::size_t c_angles = 360; // of half a circle

double GetDegrees(double index)
{
    return 180 * index / c_angles - 90;
}

// Power of the waves that run towards greater x; frequencies in 1/m.
class CPowerSpectrum
{
public:
    CPowerSpectrum(const SSurface& surface, double mean)
    {
        CLineSpectra spectra(surface, mean, surface.points, CLineSpectra::ETaper::Hann);
        const CFourierTransform transform(surface.lines);
        m_height = transform.GetSize();
        m_unitX = 1 / (static_cast<double>(spectra.GetSize()) * surface.dx);
        m_unitY = 1 / (static_cast<double>(m_height) * surface.dy);
        m_values.resize(spectra.GetWidth() * m_height);
        ComputeInShares(spectra.GetWidth(), [&](std::size_t first, std::size_t last) {
            std::vector<CComplex> column(m_height);
            for (std::size_t i = first; i < last; ++i) {
                spectra.GetColumn(i, column);
                transform.Forward(column);
                std::transform(column.begin(), column.end(), &m_values[i * m_height],
                               [](CComplex value) { return std::norm(value); });
            }
        });
    }

    // The least difference of frequencies that the surface can tell apart.
    double GetStep() const { return std::min(m_unitX, m_unitY); }

    // Between the frequencies of the transform by a quadratic spline, which smooths a little but, unlike
    // straight lines, does not draw the maximum to one of them.
    // @param x 0 up to the highest frequency that the points resolve
    double GetPower(double x, double y) const
    {
        const double column = x / m_unitX;
        const double row = y / m_unitY;
        const auto i = std::lround(column);
        const auto j = std::lround(row);
        const auto alongX = GetWeights(column - static_cast<double>(i));
        const auto alongY = GetWeights(row - static_cast<double>(j));
        double sum = 0;
        for (int k = 0; k < 3; ++k)
            for (int l = 0; l < 3; ++l)
                sum += alongX[static_cast<std::size_t>(k)] * alongY[static_cast<std::size_t>(l)] *
                       GetValue(i + k - 1, j + l - 1);
        return sum;
    }

private:
    // Of the values before, at and after a place that lies -0.5 … 0.5 beside the middle one.
    static std::array<double, 3> GetWeights(double offset)
    {
        return {(0.5 - offset) * (0.5 - offset) / 2, 0.75 - offset * offset,
                (0.5 + offset) * (0.5 + offset) / 2};
    }

    // The power is the same at the opposite frequency, and periodic.
    double GetValue(std::ptrdiff_t column, std::ptrdiff_t row) const
    {
        const auto height = static_cast<std::ptrdiff_t>(m_height);
        const std::ptrdiff_t last = static_cast<std::ptrdiff_t>(m_values.size()) / height - 1;
        if (column < 0 || column > last) {
            column = column < 0 ? -column : 2 * last - column;
            row = -row;
        }
        return m_values[static_cast<std::size_t>(column * height + (row + 2 * height) % height)];
    }

    std::size_t m_height = 0;
    double m_unitX = 0;
    double m_unitY = 0;
    std::vector<double> m_values; // column after column
};

double Integrate(const CPowerSpectrum& spectrum, double degrees, double lowest, double highest)
{
    const double angle = degrees * std::numbers::pi / 180;
    const double x = std::max(std::cos(angle), 0.0);
    const double y = std::sin(angle);
    const double step = spectrum.GetStep() / 2;
    const auto count = static_cast<std::size_t>((highest - lowest) / step);
    double sum = 0;
    for (std::size_t i = 0; i <= count; ++i) {
        const double r = lowest + static_cast<double>(i) * step;
        sum += r * spectrum.GetPower(r * x, r * y);
    }
    return sum;
}

// The index of the greatest value of a circle, between the values by a parabola.
double FindMaximum(const std::array<double, c_angles>& values)
{
    const auto index =
        static_cast<std::size_t>(std::max_element(values.begin(), values.end()) - values.begin());
    const double before = values[(index + c_angles - 1) % c_angles];
    const double after = values[(index + 1) % c_angles];
    const double bend = 2 * values[index] - before - after;
    return static_cast<double>(index) + (bend > 0 ? (after - before) / (2 * bend) : 0);
}

} // namespace

double ComputeTextureDirection(const SSurface& surface, double mean)
{
    const double lowest = 1 / std::min(static_cast<double>(surface.points) * surface.dx,
                                       static_cast<double>(surface.lines) * surface.dy);
    const double highest = 0.5 / std::max(surface.dx, surface.dy);
    if (!(lowest < highest))
        return c_undefined;
    const CPowerSpectrum spectrum(surface, mean);
    std::array<double, c_angles> angular{};
    ComputeInShares(c_angles, [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            angular[i] = Integrate(spectrum, GetDegrees(static_cast<double>(i)), lowest, highest);
    });
    if (!(*std::max_element(angular.begin(), angular.end()) > 0))
        return c_undefined;
    const double degrees = GetDegrees(FindMaximum(angular));
    return degrees > -90 ? degrees : degrees + 180;
}

} // namespace CommonUI::Analysis
