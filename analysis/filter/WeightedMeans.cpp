#include "analysis/filter/detail/WeightedMeans.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = std::complex<double>;

// Columns that are copied side by side, as lines of the memory's cache hold several.
constexpr std::size_t c_columns = 8;

// Heights from 0 to 1, of the same order as the validity.
std::vector<CComplex> MakePairs(const SSurface& surface, const SRange& range)
{
    const double extent = range.highest - range.lowest;
    std::vector<CComplex> pairs(surface.heights.size());
    for (std::size_t i = 0; i < pairs.size(); ++i)
        if (!std::isnan(surface.heights[i]))
            pairs[i] = {(surface.heights[i] - range.lowest) / extent, 1};
    return pairs;
}

void SumLines(std::span<CComplex> pairs, std::size_t points, const FWeightedSums& sum)
{
    if (pairs.empty() || !sum)
        return;
    ComputeInShares(pairs.size() / points, [&](std::size_t first, std::size_t last) {
        for (std::size_t line = first; line < last; ++line)
            sum(pairs.subspan(line * points, points));
    });
}

void Transpose(std::span<const CComplex> from, std::size_t points, std::span<CComplex> to)
{
    const std::size_t lines = from.size() / points;
    for (std::size_t column = 0; column < points; column += c_columns)
        for (std::size_t line = 0; line < lines; ++line)
            for (std::size_t i = column; i < std::min(column + c_columns, points); ++i)
                to[i * lines + line] = from[line * points + i];
}

void SumColumns(std::span<CComplex> pairs, std::size_t points, const FWeightedSums& sum)
{
    if (pairs.empty() || !sum)
        return;
    const std::size_t lines = pairs.size() / points;
    std::vector<CComplex> columns(pairs.size());
    Transpose(pairs, points, columns);
    SumLines(columns, lines, sum);
    Transpose(columns, lines, pairs);
}

} // namespace

SSurface ComputeWeightedMeans(const SSurface& surface, const FWeightedSums& along,
                              const FWeightedSums& across)
{
    SSurface means = surface;
    const SRange range = FindRange(surface.heights);
    if (!(range.highest > range.lowest))
        return means;
    std::vector<CComplex> pairs = MakePairs(surface, range);
    SumLines(pairs, surface.points, along);
    SumColumns(pairs, surface.points, across);
    for (std::size_t i = 0; i < pairs.size(); ++i)
        if (!std::isnan(means.heights[i]))
            means.heights[i] =
                range.lowest + pairs[i].real() / pairs[i].imag() * (range.highest - range.lowest);
    return means;
}

} // namespace CommonUI::Analysis
