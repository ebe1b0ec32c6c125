#include "analysis/feature/ChangeTree.h"

#include "analysis/feature/detail/Landscape.h"
#include "analysis/numeric/detail/DisjointSets.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

struct SPass {
    double height;
    std::uint32_t point;
};

// The points from which the way leads on in more than one direction, in the order in which rising water reaches them.
std::vector<SPass> CollectPasses(const CLandscape& landscape, const std::vector<std::uint32_t>& labels)
{
    std::vector<SPass> passes;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        bool isPass = false;
        landscape.ForEachNeighbour(i, [&](std::size_t q, double) {
            isPass = isPass || (labels[q] != labels[i] && landscape.IsBefore(q, i));
        });
        if (isPass)
            passes.push_back({landscape.GetHeight(i), static_cast<std::uint32_t>(i)});
    }
    std::sort(passes.begin(), passes.end(), [](const SPass& a, const SPass& b) {
        return a.height < b.height || (a.height == b.height && a.point < b.point);
    });
    return passes;
}

// Numbers from 1 in the order of the first points.
// @param sets of the old numbers
// @param stays whose extremum is that of the set
void Renumber(CDisjointSets& sets, const std::vector<std::uint32_t>& stays,
              const std::vector<double>& saddles, const SFeatureMap& map, SPruned& pruned)
{
    std::vector<std::uint32_t> numbers(map.GetCount() + 1);
    pruned.map.labels.reserve(map.labels.size());
    for (const std::uint32_t label : map.labels) {
        const std::uint32_t root = sets.Find(label);
        if (label != 0 && numbers[root] == 0) {
            pruned.map.extrema.push_back(map.extrema[stays[root] - 1]);
            pruned.saddles.push_back(saddles[root]);
            numbers[root] = static_cast<std::uint32_t>(pruned.map.GetCount());
        }
        pruned.map.labels.push_back(numbers[root]);
    }
}

} // namespace

std::vector<SMeeting> ComputeChangeTree(const SSurface& surface, const SFeatureMap& map)
{
    const CLandscape landscape(surface, map.kind);
    // Numbers of what water connects, and for each that of the deepest pit.
    CDisjointSets lakes(map.GetCount() + 1);
    std::vector<std::uint32_t> deepest(map.GetCount() + 1);
    for (std::uint32_t i = 0; i < deepest.size(); ++i)
        deepest[i] = i;
    const auto getPit = [&](std::uint32_t number) { return map.extrema[number - 1].point; };

    std::vector<SMeeting> tree;
    for (const SPass& pass : CollectPasses(landscape, map.labels)) {
        const std::uint32_t own = map.labels[pass.point];
        landscape.ForEachNeighbour(pass.point, [&](std::size_t q, double) {
            if (!landscape.IsBefore(q, pass.point))
                return;
            const std::uint32_t other = map.labels[q];
            const std::uint32_t lake = lakes.Find(own);
            const std::uint32_t otherLake = lakes.Find(other);
            if (lake == otherLake)
                return;
            std::uint32_t deeper = deepest[lake];
            std::uint32_t shallower = deepest[otherLake];
            if (landscape.IsBefore(getPit(shallower), getPit(deeper)))
                std::swap(deeper, shallower);
            tree.push_back({.height = surface.heights[pass.point],
                            .point = pass.point,
                            .first = own,
                            .second = other,
                            .ending = shallower,
                            .extent = pass.height - landscape.GetHeight(getPit(shallower))});
            deepest[lakes.Merge(lake, otherLake)] = deeper;
        });
    }
    return tree;
}

SPruned PruneFeatures(const SFeatureMap& map, const std::vector<SMeeting>& tree, double leastExtent)
{
    CDisjointSets sets(map.GetCount() + 1);
    std::vector<double> saddles(map.GetCount() + 1, c_undefined);
    std::vector<std::uint32_t> stays(map.GetCount() + 1); // whose extremum stays, of each set
    for (std::uint32_t i = 0; i < stays.size(); ++i)
        stays[i] = i;
    // What reaches less than it has to has met nothing but such before, so it is one set, without a saddle.
    for (const SMeeting& meeting : tree) {
        const std::uint32_t first = sets.Find(meeting.first);
        const std::uint32_t second = sets.Find(meeting.second);
        if (meeting.extent < leastExtent) {
            const std::uint32_t kept = stays[first] == meeting.ending ? second : first;
            const std::uint32_t root = sets.Merge(first, second);
            stays[root] = stays[kept];
            saddles[root] = saddles[kept];
            continue;
        }
        for (const std::uint32_t side : {first, second})
            if (std::isnan(saddles[side]))
                saddles[side] = meeting.height;
    }
    SPruned pruned{.map = {.kind = map.kind, .points = map.points, .lines = map.lines}};
    Renumber(sets, stays, saddles, map, pruned);
    return pruned;
}

} // namespace CommonUI::Analysis
