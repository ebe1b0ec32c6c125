#include "analysis/feature/Features.h"

#include "analysis/feature/detail/Landscape.h"

#include <algorithm>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

// What has a point at the border or beside a missing one is open.
void FindOpen(const SSurface& surface, SFeatures& found)
{
    const CLandscape landscape(surface, found.map.kind);
    const auto open = [&](std::size_t i) {
        if (const std::uint32_t label = found.map.labels[i]; label != 0)
            found.features[label - 1].isClosed = false;
    };
    for (std::size_t i = 0; i < surface.heights.size(); ++i)
        if (found.map.labels[i] == 0)
            landscape.ForEachNeighbour(i, [&](std::size_t q, double) { open(q); });
    for (std::size_t line = 0; line < surface.lines; ++line) {
        open(line * surface.points);
        open((line + 1) * surface.points - 1);
    }
    for (std::size_t i = 0; i < surface.points; ++i) {
        open(i);
        open((surface.lines - 1) * surface.points + i);
    }
}

void MeasurePoints(const SSurface& surface, SFeatures& found)
{
    const double cell = surface.dx * surface.dy;
    const double sign = found.map.kind == EFeature::Dale ? 1 : -1;
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        if (found.map.labels[i] == 0)
            continue;
        SFeature& feature = found.features[found.map.labels[i] - 1];
        ++feature.points;
        // NaN stays NaN
        feature.volume += std::max(sign * (feature.saddle - surface.heights[i]), 0.0) * cell;
    }
    for (SFeature& feature : found.features)
        feature.area = static_cast<double>(feature.points) * cell;
}

} // namespace

SFeatures FindFeatures(const SSurface& surface, EFeature kind, double leastExtent)
{
    SFeatures found;
    SFeatureMap all = FindWatersheds(surface, kind);
    const std::vector<SMeeting> tree = ComputeChangeTree(surface, all);
    SPruned pruned = PruneFeatures(std::move(all), tree, leastExtent);
    found.map = std::move(pruned.map);
    for (std::size_t i = 0; i < found.map.GetCount(); ++i) {
        const SExtremum extremum = found.map.extrema[i];
        const double saddle = pruned.saddles[i];
        found.features.push_back({.extremum = extremum,
                                  .height = surface.heights[extremum.point],
                                  .saddle = saddle,
                                  .isClosed = true,
                                  .volume = saddle - saddle}); // 0 or NaN
    }
    if (!found.features.empty())
        FindOpen(surface, found);
    MeasurePoints(surface, found);
    return found;
}

double ComputeCurvature(const SSurface& surface, std::size_t point)
{
    const std::size_t column = point % surface.points;
    const std::size_t line = point / surface.points;
    if (column == 0 || line == 0 || column + 1 >= surface.points || line + 1 >= surface.lines)
        return c_undefined;
    const std::span<const double> z = surface.heights;
    const double alongX = (z[point] - z[point - 1]) + (z[point] - z[point + 1]);
    const double alongY = (z[point] - z[point - surface.points]) + (z[point] - z[point + surface.points]);
    return (alongX / (surface.dx * surface.dx) + alongY / (surface.dy * surface.dy)) / 2;
}

} // namespace CommonUI::Analysis
