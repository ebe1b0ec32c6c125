#include "analysis/feature/ChangeTree.h"

#include "analysis/feature/detail/Landscape.h"
#include "analysis/numeric/detail/DisjointSets.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::uint32_t c_none = static_cast<std::uint32_t>(-1);

// A point and a neighbour below it that belongs to another dale.
struct SPass {
    double height;
    std::uint32_t point;
    std::uint32_t first;
    std::uint32_t second;
    std::uint32_t next; // of the same first
};

// The lowest passes between dales: one for each pair of them, or some where one has many neighbours.
class CPasses
{
public:
    CPasses(const CLandscape& landscape, const SFeatureMap& map)
        : m_heads(map.GetCount() + 1, c_none)
    {
        m_passes.reserve(c_passesPerDale * map.GetCount()); // as growing takes the memory of both sizes
        // Each point meets the four neighbours behind it, and those before it have met it.
        for (std::size_t line = 0; line < map.lines; ++line)
            for (std::size_t column = 0; column < map.points; ++column) {
                const std::size_t i = line * map.points + column;
                const bool hasRight = column + 1 < map.points;
                if (hasRight)
                    Meet(landscape, map.labels, i, i + 1);
                if (line + 1 == map.lines)
                    continue;
                if (column > 0)
                    Meet(landscape, map.labels, i, i + map.points - 1);
                Meet(landscape, map.labels, i, i + map.points);
                if (hasRight)
                    Meet(landscape, map.labels, i, i + map.points + 1);
            }
    }

    // In the order in which rising water reaches them.
    std::vector<SPass> TakeSorted()
    {
        std::sort(m_passes.begin(), m_passes.end(), [](const SPass& a, const SPass& b) {
            return std::tie(a.height, a.point, a.first, a.second) <
                   std::tie(b.height, b.point, b.first, b.second);
        });
        return std::move(m_passes);
    }

private:
    // A dale usually has six neighbours, each of which it shares a pass with; seldom are some stored twice.
    static constexpr std::size_t c_passesPerDale = 4;

    // Between neighbours of two dales the pass is at the one that water reaches later.
    void Meet(const CLandscape& landscape, const std::vector<std::uint32_t>& labels, std::size_t a,
              std::size_t b)
    {
        const auto [first, second] = std::minmax(labels[a], labels[b]);
        if (first == second || first == 0) // 0: missing
            return;
        const std::size_t point = landscape.IsBefore(a, b) ? b : a;
        Add(landscape.GetHeight(point), static_cast<std::uint32_t>(point), first, second);
    }

    // Of equal passes that at the first point stays.
    void Add(double height, std::uint32_t point, std::uint32_t first, std::uint32_t second)
    {
        constexpr int c_mostSeen = 8; // as more would take long where one dale has many neighbours
        std::uint32_t at = m_heads[first];
        for (int i = 0; i < c_mostSeen && at != c_none; ++i, at = m_passes[at].next) {
            SPass& pass = m_passes[at];
            if (pass.second != second)
                continue;
            if (height < pass.height || (height == pass.height && point < pass.point)) {
                pass.height = height;
                pass.point = point;
            }
            return;
        }
        m_passes.push_back({height, point, first, second, m_heads[first]});
        m_heads[first] = static_cast<std::uint32_t>(m_passes.size() - 1);
    }

    std::vector<SPass> m_passes;
    std::vector<std::uint32_t> m_heads; // the latest pass of each dale
};

// Numbers from 1 in the order of the first points, in place of the old ones.
// @param sets of the old numbers
// @param stays whose extremum is that of the set
void Renumber(CDisjointSets& sets, const std::vector<std::uint32_t>& stays,
              const std::vector<double>& saddles, SPruned& pruned)
{
    const std::vector<SExtremum> extrema = std::exchange(pruned.map.extrema, {});
    std::vector<std::uint32_t> numbers(extrema.size() + 1);
    for (std::uint32_t& label : pruned.map.labels) {
        const std::uint32_t root = sets.Find(label);
        if (label != 0 && numbers[root] == 0) {
            pruned.map.extrema.push_back(extrema[stays[root] - 1]);
            pruned.saddles.push_back(saddles[root]);
            numbers[root] = static_cast<std::uint32_t>(pruned.map.GetCount());
        }
        label = numbers[root];
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
    std::vector<double> pits(map.GetCount() + 1);
    for (std::size_t i = 0; i < map.GetCount(); ++i)
        pits[i + 1] = landscape.GetHeight(map.extrema[i].point);

    std::vector<SMeeting> tree;
    tree.reserve(map.GetCount());
    for (const SPass& pass : CPasses(landscape, map).TakeSorted()) {
        const std::uint32_t lake = lakes.Find(pass.first);
        const std::uint32_t otherLake = lakes.Find(pass.second);
        if (lake == otherLake)
            continue;
        std::uint32_t deeper = deepest[lake];
        std::uint32_t shallower = deepest[otherLake];
        if (pits[shallower] < pits[deeper] || (pits[shallower] == pits[deeper] && shallower < deeper))
            std::swap(deeper, shallower);
        tree.push_back({.height = surface.heights[pass.point],
                        .point = pass.point,
                        .first = pass.first,
                        .second = pass.second,
                        .ending = shallower,
                        .extent = pass.height - pits[shallower]});
        deepest[lakes.Merge(lake, otherLake)] = deeper;
    }
    return tree;
}

SPruned PruneFeatures(SFeatureMap map, const std::vector<SMeeting>& tree, double leastExtent)
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
    SPruned pruned{.map = std::move(map)};
    Renumber(sets, stays, saddles, pruned);
    return pruned;
}

} // namespace CommonUI::Analysis
