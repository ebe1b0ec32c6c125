#include "analysis/grain/Grains.h"

#include "analysis/numeric/detail/DisjointSets.h"

#include <limits>

namespace CommonUI::Analysis
{

namespace
{

// Labels the points by a first pass over them, in which parts of a grain may have labels of their own. Set 0
// is that of no grain.
CDisjointSets LabelParts(const SSurface& surface, double threshold, EGrainKind kind, SGrainMap& map)
{
    CDisjointSets sets;
    sets.Add();
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        const double z = surface.heights[i];
        if (kind == EGrainKind::Particle ? !(z >= threshold) : !(z < threshold))
            continue;
        const std::uint32_t left = i % map.points > 0 ? map.labels[i - 1] : 0;
        const std::uint32_t above = i >= map.points ? map.labels[i - map.points] : 0;
        if (left != 0 && above != 0)
            map.labels[i] = left == above ? left : sets.Merge(left, above);
        else
            map.labels[i] = left + above != 0 ? left + above : sets.Add();
    }
    return sets;
}

} // namespace

SGrainMap FindGrains(const SSurface& surface, double threshold, EGrainKind kind)
{
    const std::size_t size = surface.heights.size();
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw ETooManyPoints();
    SGrainMap map{.points = surface.points, .lines = surface.lines};
    map.labels.resize(size);
    CDisjointSets sets = LabelParts(surface, threshold, kind, map);

    // The first point of a grain has the lowest of its labels, so numbers in their order are numbers in order
    // of the points.
    std::vector<std::uint32_t> numbers(sets.GetSize());
    for (std::uint32_t i = 1; i < numbers.size(); ++i) {
        const std::uint32_t root = sets.Find(i);
        numbers[i] = root == i ? ++map.count : numbers[root];
    }
    for (std::uint32_t& label : map.labels)
        label = numbers[label];
    return map;
}

void SelectGrains(SGrainMap& map, const SGrainSelection& selection, double cell)
{
    if (selection.IsAll())
        return;
    std::vector<std::size_t> sizes(map.count + std::size_t{1});
    std::vector<bool> touchesEdge(sizes.size());
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        const std::size_t x = i % map.points;
        const std::size_t y = i / map.points;
        ++sizes[map.labels[i]];
        if (x == 0 || x + 1 == map.points || y == 0 || y + 1 == map.lines)
            touchesEdge[map.labels[i]] = true;
    }
    std::vector<std::uint32_t> numbers(sizes.size());
    map.count = 0;
    for (std::size_t grain = 1; grain < sizes.size(); ++grain) {
        if (sizes[grain] >= selection.minimumPoints &&
            static_cast<double>(sizes[grain]) * cell >= selection.minimumArea &&
            (selection.includesEdge || !touchesEdge[grain]))
            numbers[grain] = ++map.count;
    }
    for (std::uint32_t& label : map.labels)
        label = numbers[label];
}

} // namespace CommonUI::Analysis
