#include "analysis/areal/detail/HybridParameters.h"

#include "analysis/numeric/detail/Summation.h"

#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

// How much larger than its projection a facet is whose squared gradient is given: √(1 + s) - 1 without
// cancellation. It is never more than s / 2, rounding included.
double GetExcess(double square)
{
    return square / (1 + std::sqrt(1 + square));
}

// Sums of the squared gradient and of the excess of area over the cells that have four valid corners, and how
// many cells there are. A cell is divided into two triangles, by the one diagonal and by the other, each of
// which has the slopes of two of the cell's edges; the cell's values are the means of the four.
SSums<3> SumCells(const SSurface& surface)
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
            SSums<3> sums{0, 0, 1};
            for (const double p : {p1 * p1, p2 * p2}) {
                for (const double q : {q1 * q1, q2 * q2}) {
                    sums.values[0] += (p + q) / 4;
                    sums.values[1] += GetExcess(p + q) / 4;
                }
            }
            return std::isnan(sums.values[0]) ? SSums<3>{} : sums;
        });
    });
}

} // namespace

SHybridParameters ComputeHybridParameters(const SSurface& surface)
{
    const auto [squares, excess, cells] = SumCells(surface).values;
    const double cellArea = surface.dx * surface.dy;
    return {.slope = std::sqrt(squares / cells),
            .excess = 100 * excess / cells,
            .projectedArea = cells == 0 ? c_undefined : cells * cellArea,
            .developedArea = cells == 0 ? c_undefined : (cells + excess) * cellArea};
}

} // namespace CommonUI::Analysis
