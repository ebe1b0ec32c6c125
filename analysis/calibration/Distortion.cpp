#include "analysis/calibration/Gratings.h"

#include "analysis/calibration/detail/GratingSpectrum.h"
#include "analysis/form/Levelling.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/numeric/HannWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <optional>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = std::complex<double>;
using CPair = std::array<CComplex, 2>;

constexpr std::size_t c_mostSquares = 32;
constexpr double c_leastPeriods = 4; // in a square, so that its window separates both waves
constexpr double c_turn = 2 * std::numbers::pi;

// How many squares there are along an axis.
std::size_t CountSquares(double extent, double periodsPerMetre)
{
    const double most = 2 * extent * periodsPerMetre / c_leastPeriods - 1; // each reaches over two steps
    return static_cast<std::size_t>(std::clamp(std::floor(most), 1.0, static_cast<double>(c_mostSquares)));
}

// One of the squares along an axis, which overlap by half.
struct SSpan {
    std::size_t first;
    std::size_t last;

    SSpan(std::size_t index, std::size_t count, std::size_t points)
        : first(index * points / (count + 1))
        , last((index + 2) * points / (count + 1))
    {
    }
};

// The waves of a surface, in the squares.
class CSquares
{
public:
    CSquares(const SSurface& level, std::array<SWave, 2> waves)
        : m_level(level)
        , m_waves(waves)
    {
        for (std::size_t i = 0; i < 2; ++i) {
            m_turnsX[i] = MakeTurns(level.points, waves[i].x * level.dx);
            m_turnsY[i] = MakeTurns(level.lines, waves[i].y * level.dy);
        }
    }

    // Σ of the windowed heights times exp(-2πi f r).
    CPair Sum(const SSpan& x, const SSpan& y) const
    {
        const std::vector<double> alongX =
            MakeHannWindow(x.last - x.first, static_cast<double>(x.last - x.first));
        const std::vector<double> alongY =
            MakeHannWindow(y.last - y.first, static_cast<double>(y.last - y.first));
        CPair sums{};
        for (std::size_t line = y.first; line < y.last; ++line) {
            CPair row{};
            for (std::size_t point = x.first; point < x.last; ++point) {
                const double z = m_level.heights[line * m_level.points + point];
                if (std::isnan(z))
                    continue;
                for (std::size_t i = 0; i < 2; ++i)
                    row[i] += z * alongX[point - x.first] * m_turnsX[i][point];
            }
            for (std::size_t i = 0; i < 2; ++i)
                sums[i] += alongY[line - y.first] * row[i] * m_turnsY[i][line];
        }
        return sums;
    }

    // The length of the displacement whose phases differ as those of two pairs of sums.
    double GetDisplacement(const CPair& here, const CPair& whole) const
    {
        const double a = -std::arg(here[0] * std::conj(whole[0])) / c_turn; // periods
        const double b = -std::arg(here[1] * std::conj(whole[1])) / c_turn;
        const double determinant = m_waves[0].x * m_waves[1].y - m_waves[0].y * m_waves[1].x;
        return std::hypot(a * m_waves[1].y - b * m_waves[0].y, b * m_waves[0].x - a * m_waves[1].x) /
               std::fabs(determinant);
    }

private:
    static std::vector<CComplex> MakeTurns(std::size_t count, double frequency)
    {
        std::vector<CComplex> turns(count);
        for (std::size_t i = 0; i < count; ++i)
            turns[i] = std::polar(1.0, -c_turn * frequency * static_cast<double>(i));
        return turns;
    }

    const SSurface& m_level;
    std::array<SWave, 2> m_waves;
    std::array<std::vector<CComplex>, 2> m_turnsX{};
    std::array<std::vector<CComplex>, 2> m_turnsY{};
};

} // namespace

SSurface ComputeDistortion(const SSurface& surface)
{
    if (surface.IsProfile())
        return {};
    const CGratingSpectrum spectrum(surface);
    const std::optional<SWave> first = spectrum.FindWave();
    const std::optional<SWave> second = first ? spectrum.FindWave(first) : std::nullopt;
    if (!second)
        return {};
    SSurface level = surface;
    Level(level, ELevelling::Plane);
    const CSquares squares(level, {*first, *second});
    const double frequency = std::min(std::hypot(first->x, first->y), std::hypot(second->x, second->y));
    const double extentX = static_cast<double>(surface.points) * surface.dx;
    const double extentY = static_cast<double>(surface.lines) * surface.dy;
    SSurface map{.points = CountSquares(extentX, frequency), .lines = CountSquares(extentY, frequency)};
    map.dx = extentX / static_cast<double>(map.points + 1);
    map.dy = extentY / static_cast<double>(map.lines + 1);
    map.heights.resize(map.points * map.lines);
    const CPair whole = squares.Sum({0, 1, surface.points}, {0, 1, surface.lines});
    ComputeInShares(map.lines, [&](std::size_t firstLine, std::size_t lastLine) {
        for (std::size_t y = firstLine; y < lastLine; ++y)
            for (std::size_t x = 0; x < map.points; ++x)
                map.heights[y * map.points + x] = squares.GetDisplacement(
                    squares.Sum({x, map.points, surface.points}, {y, map.lines, surface.lines}), whole);
    });
    return map;
}

} // namespace CommonUI::Analysis
