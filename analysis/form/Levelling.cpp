#include "analysis/form/Levelling.h"

#include "analysis/numeric/detail/Summation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CommonUI::Analysis
{

namespace
{

// The height b (column - column0) + c (row - row0) + mean: centred on the valid points, which keeps the fit
// exact.
struct SPlane {
    double column0 = 0;
    double row0 = 0;
    double mean = 0;
    double alongColumns = 0;
    double alongRows = 0;

    double GetHeight(double column, double row) const
    {
        return mean + alongColumns * (column - column0) + alongRows * (row - row0);
    }
};

// Σ term(column, row, z) over the valid points.
template<class FTerm>
auto SumPoints(const SSurface& surface, const FTerm& term)
{
    return PairwiseSum(0, surface.lines, [&](std::size_t row) {
        const auto line = surface.GetLine(row);
        return PairwiseSum(0, line.size(), [&](std::size_t column) {
            using SPointSums = decltype(term(0.0, 0.0, 0.0));
            return std::isnan(line[column])
                       ? SPointSums{}
                       : term(static_cast<double>(column), static_cast<double>(row), line[column]);
        });
    });
}

SPlane FitMean(const SSurface& surface)
{
    const auto [count, column, row, z] = SumPoints(surface, [](double x, double y, double height) {
                                             return SSums<4>{1, x, y, height};
                                         }).values;
    return {.column0 = column / count, .row0 = row / count, .mean = z / count};
}

SPlane FitPlane(const SSurface& surface)
{
    SPlane plane = FitMean(surface);
    const auto [xx, xy, yy, xz, yz] = SumPoints(surface, [&](double column, double row, double height) {
                                          const double x = column - plane.column0;
                                          const double y = row - plane.row0;
                                          const double z = height - plane.mean;
                                          return SSums<5>{x * x, x * y, y * y, x * z, y * z};
                                      }).values;
    const double determinant = xx * yy - xy * xy;
    if (determinant > 1e-12 * xx * yy) {
        plane.alongColumns = (xz * yy - yz * xy) / determinant;
        plane.alongRows = (yz * xx - xz * xy) / determinant;
    } else if (xx > 0) { // all points on one straight line
        plane.alongColumns = xz / xx;
    } else if (yy > 0) {
        plane.alongRows = yz / yy;
    }
    return plane;
}

// The greatest absolute height; 0 without valid points.
double GetMagnitude(const SSurface& surface)
{
    double magnitude = 0;
    for (const double z : surface.heights)
        magnitude = std::max(magnitude, std::fabs(z)); // keeps the first if z is NaN
    return magnitude;
}

void Subtract(const SPlane& plane, SSurface& surface)
{
    const double noise = 16 * std::numeric_limits<double>::epsilon() * GetMagnitude(surface);
    for (std::size_t row = 0; row < surface.lines; ++row)
        for (std::size_t column = 0; column < surface.points; ++column)
            surface.heights[row * surface.points + column] -=
                plane.GetHeight(static_cast<double>(column), static_cast<double>(row));
    if (GetMagnitude(surface) <= noise)
        for (double& z : surface.heights)
            z *= 0; // NaN stays NaN
}

} // namespace

void Level(SSurface& surface, ELevelling levelling)
{
    if (levelling == ELevelling::None || GetMagnitude(surface) == 0)
        return;
    Subtract(levelling == ELevelling::Mean ? FitMean(surface) : FitPlane(surface), surface);
}

} // namespace CommonUI::Analysis
