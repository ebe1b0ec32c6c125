#include "analysis/filter/IsoGaussianFilter.h"

#include "analysis/filter/detail/WeightedMeans.h"
#include "analysis/filter/GaussianFilter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_rounding = 1e-9; // a cut-off of exactly n points may have come out a trifle longer

// A direction in which a filter runs.
struct SDirection {
    std::size_t count;
    double spacing;
    bool isFiltered;

    double GetLength() const { return static_cast<double>(count) * spacing; }
};

SDirection GetAlong(const SSurface& surface, const SIsoGaussianFilter& filter)
{
    const bool isColumn = filter.extent == EGaussianExtent::Areal && surface.points == 1 && surface.lines > 1;
    return {surface.points, surface.dx, !isColumn};
}

SDirection GetAcross(const SSurface& surface, const SIsoGaussianFilter& filter)
{
    return {surface.lines, surface.dy, filter.extent == EGaussianExtent::Areal && surface.lines > 1};
}

ECutoff Check(const SDirection& direction, double cutoff)
{
    if (!direction.isFiltered)
        return ECutoff::Usable;
    if (!(direction.spacing > 0) || !(cutoff > 0) || !std::isfinite(cutoff / direction.spacing))
        return ECutoff::Undefined;
    if (cutoff > direction.GetLength() * (1 + c_rounding))
        return ECutoff::TooLong;
    return cutoff > 2 * direction.spacing * (1 + c_rounding) ? ECutoff::Usable : ECutoff::TooShort;
}

FWeightedSums MakeSums(const SDirection& direction, double cutoff)
{
    if (!direction.isFiltered)
        return {};
    const CGaussianFilter gaussian(direction.count, cutoff / direction.spacing);
    return [gaussian](std::span<CGaussianFilter::CComplex> values) { gaussian.Convolve(values); };
}

} // namespace

double GetCutoff(const SSurface& surface, const SIsoGaussianFilter& filter)
{
    const SDirection along = GetAlong(surface, filter);
    const SDirection across = GetAcross(surface, filter);
    const double x = along.GetLength();
    const double y = across.GetLength();
    const double length = !across.isFiltered ? x : !along.isFiltered ? y : std::min(x, y);
    return filter.cutoff > 0 ? filter.cutoff : filter.share * length;
}

ECutoff CheckCutoff(const SSurface& surface, const SIsoGaussianFilter& filter)
{
    const double cutoff = GetCutoff(surface, filter);
    const ECutoff along = Check(GetAlong(surface, filter), cutoff);
    return along == ECutoff::Usable ? Check(GetAcross(surface, filter), cutoff) : along;
}

SSurface FilterIsoGaussian(const SSurface& surface, const SIsoGaussianFilter& filter)
{
    const double cutoff = GetCutoff(surface, filter);
    SSurface filtered = ComputeWeightedMeans(surface, MakeSums(GetAlong(surface, filter), cutoff),
                                             MakeSums(GetAcross(surface, filter), cutoff));
    if (filter.pass == EPass::High)
        for (std::size_t i = 0; i < filtered.heights.size(); ++i)
            filtered.heights[i] = surface.heights[i] - filtered.heights[i];
    return filtered;
}

} // namespace CommonUI::Analysis
