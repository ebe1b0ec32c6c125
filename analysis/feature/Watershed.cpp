#include "analysis/feature/Watershed.h"

#include "analysis/feature/detail/Landscape.h"
#include "analysis/grain/Grains.h"
#include "analysis/numeric/detail/Parallel.h"

#include <limits>

namespace CommonUI::Analysis
{

namespace
{

using CTargets = std::vector<std::uint32_t>; // where the way leads from each point; to itself where it ends

CTargets LeadDown(const CLandscape& landscape)
{
    CTargets targets(landscape.GetSize());
    ComputeInShares(targets.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const double height = landscape.GetHeight(i);
            std::size_t target = i;
            double steepest = 0;
            landscape.ForEachNeighbour(i, [&](std::size_t q, double perDistance) {
                const double slope = (height - landscape.GetHeight(q)) * perDistance;
                if (slope > steepest) {
                    steepest = slope;
                    target = q;
                }
            });
            targets[i] = static_cast<std::uint32_t>(target);
        }
    });
    return targets;
}

// From the points of plateaus that lie above something, the way leads to the nearest one that has a way down.
void LeadOffPlateaus(const CLandscape& landscape, CTargets& targets)
{
    const auto isLevel = [&](std::size_t i, std::size_t q) {
        return landscape.GetHeight(i) == landscape.GetHeight(q);
    };
    std::vector<std::uint32_t> reached;
    for (std::size_t i = 0; i < targets.size(); ++i)
        if (targets[i] == i)
            landscape.ForEachNeighbour(i, [&](std::size_t q, double) {
                if (isLevel(i, q) && targets[q] != q)
                    reached.push_back(static_cast<std::uint32_t>(q));
            });
    for (std::size_t next = 0; next < reached.size(); ++next) {
        const std::uint32_t i = reached[next];
        landscape.ForEachNeighbour(i, [&](std::size_t q, double) {
            if (!isLevel(i, q) || targets[q] != q)
                return;
            targets[q] = i;
            reached.push_back(static_cast<std::uint32_t>(q));
        });
    }
}

SExtremum MakeExtremum(const CLandscape& landscape, const std::vector<std::uint32_t>& plateau)
{
    struct SPlace {
        double x;
        double y;
    };
    const auto placeOf = [width = landscape.GetSurface().points](std::size_t i) {
        const std::size_t line = i / width;
        return SPlace{static_cast<double>(i % width), static_cast<double>(line)};
    };
    SExtremum extremum{.point = plateau.front()};
    SPlace sum{};
    for (const std::uint32_t i : plateau) {
        const SPlace place = placeOf(i);
        sum.x += place.x;
        sum.y += place.y;
        extremum.isAtEdge = extremum.isAtEdge || landscape.IsAtEdge(i);
    }
    const auto count = static_cast<double>(plateau.size());
    double nearest = std::numeric_limits<double>::infinity();
    for (const std::uint32_t i : plateau) {
        const SPlace place = placeOf(i);
        const double distance = std::hypot(place.x - sum.x / count, place.y - sum.y / count);
        if (distance < nearest) {
            nearest = distance;
            extremum.point = i;
        }
    }
    return extremum;
}

// Gives a number to each point, or level set of points, at which the way ends.
void NumberExtrema(const CLandscape& landscape, const CTargets& targets, SFeatureMap& map)
{
    std::vector<std::uint32_t> plateau;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (targets[i] != i || map.labels[i] != 0 || landscape.IsMissing(i))
            continue;
        const auto number = static_cast<std::uint32_t>(map.GetCount() + 1);
        plateau.assign(1, static_cast<std::uint32_t>(i));
        map.labels[i] = number;
        for (std::size_t next = 0; next < plateau.size(); ++next)
            landscape.ForEachNeighbour(plateau[next], [&](std::size_t q, double) {
                if (map.labels[q] != 0 || landscape.GetHeight(q) != landscape.GetHeight(i))
                    return;
                map.labels[q] = number;
                plateau.push_back(static_cast<std::uint32_t>(q));
            });
        map.extrema.push_back(MakeExtremum(landscape, plateau));
    }
}

// Each point has the number of what its way leads to.
void LabelWays(const CLandscape& landscape, const CTargets& targets, std::vector<std::uint32_t>& labels)
{
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i] != 0 || landscape.IsMissing(i))
            continue;
        std::size_t end = i;
        while (labels[end] == 0)
            end = targets[end];
        for (std::size_t at = i; labels[at] == 0; at = targets[at])
            labels[at] = labels[end];
    }
}

} // namespace

SFeatureMap FindWatersheds(const SSurface& surface, EFeature kind)
{
    const std::size_t size = surface.heights.size();
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw ETooManyPoints();
    const CLandscape landscape(surface, kind);
    CTargets targets = LeadDown(landscape);
    LeadOffPlateaus(landscape, targets);
    SFeatureMap map{.kind = kind, .points = surface.points, .lines = surface.lines};
    map.labels.resize(size);
    NumberExtrema(landscape, targets, map);
    LabelWays(landscape, targets, map.labels);
    return map;
}

} // namespace CommonUI::Analysis
