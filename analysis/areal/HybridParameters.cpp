#include "analysis/areal/detail/HybridParameters.h"

#include "analysis/numeric/detail/Summation.h"

#include <array>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

// Sum of the squared gradient over the points that have one, and how many there are.
SSums<2> SumSquaredGradient(const SSurface& surface)
{
    const double perX = 1 / (2 * surface.dx);
    const double perY = 1 / (2 * surface.dy);
    if (surface.lines < 3 || surface.points < 3)
        return {};
    return PairwiseSum(1, surface.lines - 1, [&](std::size_t row) {
        const auto above = surface.GetLine(row - 1);
        const auto line = surface.GetLine(row);
        const auto below = surface.GetLine(row + 1);
        return PairwiseSum(1, surface.points - 1, [&](std::size_t i) {
            const double p = (line[i + 1] - line[i - 1]) * perX;
            const double q = (below[i] - above[i]) * perY;
            const double square = p * p + q * q;
            return std::isnan(square + line[i]) ? SSums<2>{} : SSums<2>{square, 1};
        });
    });
}

// How much larger than their projections four facets are on average whose squared gradients are given:
// √(1 + s) - 1 without cancellation.
double GetExcess(const std::array<double, 4>& squares)
{
    std::array<double, 4> excess;
    for (std::size_t i = 0; i < squares.size(); ++i)
        excess[i] = squares[i] / (1 + std::sqrt(1 + squares[i]));
    return (excess[0] + excess[1] + excess[2] + excess[3]) / 4;
}

// Sum of the excess of the cells that have four valid corners, and how many there are. The four facets of a
// cell have the slope of an edge in one direction and the mean slope of two edges in the other.
SSums<2> SumExcess(const SSurface& surface)
{
    const double perX = 1 / surface.dx;
    const double perY = 1 / surface.dy;
    if (surface.lines < 2 || surface.points < 2)
        return {};
    return PairwiseSum(0, surface.lines - 1, [&](std::size_t row) {
        const auto line = surface.GetLine(row);
        const auto next = surface.GetLine(row + 1);
        return PairwiseSum(0, surface.points - 1, [&](std::size_t i) {
            const double p1 = (line[i + 1] - line[i]) * perX;
            const double p2 = (next[i + 1] - next[i]) * perX;
            const double q1 = (next[i] - line[i]) * perY;
            const double q2 = (next[i + 1] - line[i + 1]) * perY;
            const double pp = (p1 + p2) * (p1 + p2) / 4;
            const double qq = (q1 + q2) * (q1 + q2) / 4;
            const double excess = GetExcess({p1 * p1 + qq, p2 * p2 + qq, pp + q1 * q1, pp + q2 * q2});
            return std::isnan(excess) ? SSums<2>{} : SSums<2>{excess, 1};
        });
    });
}

} // namespace

SHybridParameters ComputeHybridParameters(const SSurface& surface)
{
    const auto [squares, points] = SumSquaredGradient(surface).values;
    const auto [excess, cells] = SumExcess(surface).values;
    const double cellArea = surface.dx * surface.dy;
    return {.slope = std::sqrt(squares / points),
            .excess = 100 * excess / cells,
            .projectedArea = cells == 0 ? c_undefined : cells * cellArea,
            .developedArea = cells == 0 ? c_undefined : (cells + excess) * cellArea};
}

} // namespace CommonUI::Analysis
