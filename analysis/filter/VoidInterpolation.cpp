#include "analysis/filter/VoidInterpolation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

// Heights from 0 to 1 whose missing ones are found from a coarser grid, which has a good idea of them, and
// then made exact.
class CVoids
{
public:
    explicit CVoids(SSurface& surface)
        : m_surface(surface)
        , m_weights{1, 1, std::pow(surface.dx / surface.dy, 2), std::pow(surface.dx / surface.dy, 2)}
    {
        for (std::size_t i = 0; i < surface.heights.size(); ++i) {
            if (std::isnan(surface.heights[i]))
                m_voids.push_back(i);
        }
    }

    void Fill()
    {
        if (m_voids.empty())
            return;
        Guess();
        Solve();
    }

private:
    static constexpr std::size_t c_none = SIZE_MAX;

    // The neighbours along x and y; none beyond the border.
    std::array<std::size_t, 4> NeighboursOf(std::size_t i) const
    {
        const std::size_t x = i % m_surface.points;
        const std::size_t y = i / m_surface.points;
        return {x > 0 ? i - 1 : c_none, x + 1 < m_surface.points ? i + 1 : c_none,
                y > 0 ? i - m_surface.points : c_none,
                y + 1 < m_surface.lines ? i + m_surface.points : c_none};
    }

    // Starts from the means of two by two points, whose own voids are filled likewise.
    void Guess()
    {
        SSurface coarse{.points = (m_surface.points + 1) / 2, .lines = (m_surface.lines + 1) / 2};
        coarse.dx = m_surface.dx;
        coarse.dy = m_surface.dy;
        std::vector<double> counts(coarse.points * coarse.lines);
        coarse.heights.resize(counts.size());
        const auto cellOf = [&](std::size_t i) {
            return i / m_surface.points / 2 * coarse.points + i % m_surface.points / 2;
        };
        for (std::size_t i = 0; i < m_surface.heights.size(); ++i) {
            if (std::isnan(m_surface.heights[i]))
                continue;
            coarse.heights[cellOf(i)] += m_surface.heights[i];
            ++counts[cellOf(i)];
        }
        for (std::size_t i = 0; i < counts.size(); ++i)
            coarse.heights[i] = counts[i] > 0 ? coarse.heights[i] / counts[i] : c_missing;
        CVoids(coarse).Fill();
        for (const std::size_t i : m_voids)
            m_surface.heights[i] = coarse.heights[cellOf(i)];
    }

    // Conjugate gradients on the heights of the voids; the other heights stand fast.
    void Solve()
    {
        m_residual.resize(m_surface.heights.size());
        m_direction.resize(m_surface.heights.size());
        std::vector<double> image(m_voids.size());
        for (const std::size_t i : m_voids)
            m_residual[i] = -Curvature(m_surface.heights, i);
        for (const std::size_t i : m_voids)
            m_direction[i] = m_residual[i];
        double square = SquareOfResidual();
        for (std::size_t round = 0; square > GoodSquare() && round < 10 * m_voids.size(); ++round) {
            double product = 0;
            for (std::size_t k = 0; k < m_voids.size(); ++k) {
                image[k] = Curvature(m_direction, m_voids[k]);
                product += m_direction[m_voids[k]] * image[k];
            }
            if (!(product > 0))
                return;
            const double step = square / product;
            for (std::size_t k = 0; k < m_voids.size(); ++k) {
                m_surface.heights[m_voids[k]] += step * m_direction[m_voids[k]];
                m_residual[m_voids[k]] -= step * image[k];
            }
            const double before = std::exchange(square, SquareOfResidual());
            for (const std::size_t i : m_voids)
                m_direction[i] = m_residual[i] + square / before * m_direction[i];
        }
    }

    // What is left of Laplace's equation at a point, with the sign turned round.
    double Curvature(const std::vector<double>& heights, std::size_t i) const
    {
        double sum = 0;
        const std::array<std::size_t, 4> neighbours = NeighboursOf(i);
        for (std::size_t side = 0; side < neighbours.size(); ++side) {
            if (neighbours[side] != c_none)
                sum += m_weights[side] * (heights[i] - heights[neighbours[side]]);
        }
        return sum;
    }

    double SquareOfResidual() const
    {
        return std::transform_reduce(m_voids.begin(), m_voids.end(), 0.0, std::plus(),
                                     [this](std::size_t i) { return m_residual[i] * m_residual[i]; });
    }

    // Far below what a millionth of the heights' range leaves at each point, as errors add up across a void.
    double GoodSquare() const { return 1e-18 / static_cast<double>(m_voids.size()); }

    SSurface& m_surface;
    std::array<double, 4> m_weights;
    std::vector<std::size_t> m_voids{};
    std::vector<double> m_residual{}; // 0 but at voids
    std::vector<double> m_direction{};
};

} // namespace

void InterpolateVoids(SSurface& surface)
{
    double low = c_missing;
    double high = c_missing;
    for (const double z : surface.heights) {
        low = std::fmin(low, z);
        high = std::fmax(high, z);
    }
    if (std::isnan(low) && !surface.heights.empty())
        throw ENoPoints();
    // Squares of shares of the range neither overflow nor vanish.
    const double range = high > low ? high - low : 1;
    SSurface shares{.points = surface.points, .lines = surface.lines, .dx = surface.dx, .dy = surface.dy};
    shares.heights.reserve(surface.heights.size());
    std::ranges::transform(surface.heights, std::back_inserter(shares.heights),
                           [&](double z) { return (z - low) / range; });
    CVoids(shares).Fill();
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        if (std::isnan(surface.heights[i]))
            surface.heights[i] = low + shares.heights[i] * range;
    }
    surface.missing = 0;
}

} // namespace CommonUI::Analysis
