#include "analysis/grain/GrainMeasures.h"

#include "analysis/grain/detail/GrainRecord.h"
#include "analysis/grain/detail/NeighbourGrid.h"
#include "analysis/grain/detail/Skeletons.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/numeric/Statistics.h"
#include "analysis/surface/Quantity.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <numeric>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

std::vector<const SGrainMeasure*> SelectMeasures(std::span<const std::string_view> keys)
{
    std::vector<const SGrainMeasure*> selected;
    for (const SGrainMeasure& measure : GetGrainMeasures())
        if (IsAmong(measure.key, keys))
            selected.push_back(&measure);
    return selected;
}

// The points of all grains, grain after grain.
struct SGrainPoints {
    std::vector<std::uint32_t> points;
    std::vector<std::uint32_t> begins; // where those of a grain begin, and an end behind the last

    explicit SGrainPoints(const SGrainMap& map)
        : begins(map.count + std::size_t{2})
    {
        for (const std::uint32_t label : map.labels)
            if (label != 0)
                ++begins[label + std::size_t{1}];
        std::partial_sum(begins.begin(), begins.end(), begins.begin());
        points.resize(begins.back());
        for (std::size_t i = 0; i < map.labels.size(); ++i)
            if (const std::uint32_t label = map.labels[i])
                points[begins[label]++] = static_cast<std::uint32_t>(i);
        begins.pop_back(); // each begin has moved to the end, which is where the next begins
    }

    std::span<const std::uint32_t> Get(std::size_t grain) const
    {
        return std::span(points).subspan(begins[grain], begins[grain + 1] - begins[grain]);
    }
};

// The centroid of the cells of some points.
SPosition FindCentre(const SSurface& surface, std::span<const std::uint32_t> points)
{
    std::uint64_t columns = 0;
    std::uint64_t lines = 0;
    for (const std::uint32_t i : points) {
        columns += i % surface.points;
        lines += i / surface.points;
    }
    const auto n = static_cast<double>(points.size());
    return {(static_cast<double>(columns) / n + 0.5) * surface.dx,
            (static_cast<double>(lines) / n + 0.5) * surface.dy};
}

std::vector<SPosition> FindCentres(const SSurface& surface, const SGrainMap& map)
{
    const SGrainPoints points(map);
    std::vector<SPosition> centres(map.count);
    ComputeInShares(centres.size(), [&](std::size_t first, std::size_t last) {
        for (; first < last; ++first)
            centres[first] = FindCentre(surface, points.Get(first));
    });
    return centres;
}

// Fills the columns about neighbours.
void MeasureNeighbours(const SSurface& surface, const SGrainMap& map, std::vector<SValues>& columns)
{
    std::vector<std::pair<SValues*, double (*)(const SNeighbour&)>> wanted;
    for (SValues& column : columns)
        for (const SNeighbourMeasure& measure : GetNeighbourMeasures())
            if (measure.key == column.key)
                wanted.emplace_back(&column, measure.get);
    for (const auto& [column, get] : wanted)
        column->values.assign(map.count, c_undefined);
    if (wanted.empty() || map.count < 2)
        return;
    const std::vector<SPosition> centres = FindCentres(surface, map);
    const CNeighbourGrid grid(centres);
    ComputeInShares(centres.size(), [&](std::size_t first, std::size_t last) {
        for (; first < last; ++first) {
            const SNeighbour neighbour = grid.FindNearest(first);
            for (const auto& [column, get] : wanted)
                column->values[first] = get(neighbour);
        }
    });
}

// Measures one grain after the other, from several threads.
class CMeasurer
{
public:
    CMeasurer(const SSurface& surface, double threshold, EGrainKind kind, const SGrainMap& map,
              const SGrainPoints& points)
        : m_surface(surface)
        , m_threshold(threshold)
        , m_isPore(kind == EGrainKind::Pore)
        , m_map(map)
        , m_points(points)
    {
    }

    SGrain Measure(std::size_t index) const
    {
        const auto points = m_points.Get(index);
        SGrain grain{.isPore = m_isPore,
                     .id = index + 1,
                     .points = points.size(),
                     .threshold = m_threshold,
                     .dx = m_surface.dx,
                     .dy = m_surface.dy,
                     .area = static_cast<double>(points.size()) * m_surface.dx * m_surface.dy,
                     .width = m_surface.points,
                     .centre = FindCentre(m_surface, points)};
        grain.heights = MeasureHeights(m_surface, points, m_threshold);
        grain.outline = TraceOutline(m_surface, m_map, points.front());
        grain.hull = MeasureHull(ComputeHull(points, m_surface.points), m_surface.dx, m_surface.dy);
        return grain;
    }

private:
    const SSurface& m_surface;
    double m_threshold;
    bool m_isPore;
    const SGrainMap& m_map;
    const SGrainPoints& m_points;
};

// Calls work(first, end) for shares of the grains that hold about as many points each, at the same time.
template<class FWork>
void ShareOut(const SGrainPoints& points, std::size_t count, const FWork& work)
{
    const std::size_t threads = GetShareCount();
    std::vector<std::future<void>> shares;
    std::size_t first = 0;
    for (std::size_t i = 1; i <= threads; ++i) {
        const auto begin = points.begins.begin();
        const std::size_t target = points.points.size() * i / threads;
        const auto end = static_cast<std::size_t>(
            std::lower_bound(begin, begin + static_cast<std::ptrdiff_t>(count), target) - begin);
        shares.push_back(ComputeBeside([&work, first, end] { work(first, end); }));
        first = end;
    }
    for (auto& share : shares)
        share.get();
}

double GetCoverage(const SSurface& surface, std::size_t grainPoints)
{
    const auto missing = std::ranges::count_if(surface.heights, [](double z) { return std::isnan(z); });
    const auto valid = static_cast<double>(surface.heights.size()) - static_cast<double>(missing);
    return 100 * static_cast<double>(grainPoints) / valid; // 0 / 0 without valid points
}

} // namespace

std::vector<std::string_view> GetGrainKeys()
{
    std::vector<std::string_view> keys;
    for (const SGrainMeasure& measure : GetGrainMeasures())
        keys.push_back(measure.key);
    return keys;
}

SGrains MeasureGrains(const SSurface& surface, double threshold, EGrainKind kind)
{
    return MeasureGrains(surface, threshold, kind, GetGrainKeys());
}

SGrains MeasureGrains(const SSurface& surface, double threshold, EGrainKind kind,
                      std::span<const std::string_view> keys)
{
    return MeasureGrains(surface, threshold, kind, keys, FindGrains(surface, threshold, kind));
}

SGrains MeasureGrains(const SSurface& surface, double threshold, EGrainKind kind,
                      std::span<const std::string_view> keys, const SGrainMap& map)
{
    const std::vector<const SGrainMeasure*> measures = SelectMeasures(keys);
    SGrains grains{.count = map.count};
    for (const SGrainMeasure* measure : measures)
        grains.columns.push_back({.key = measure->key});
    // One pass after the other: of millions of tiny grains, what a pass needs is as large as the heights.
    for (SValues& column : grains.columns)
        if (column.key == c_skeletonKey)
            column.values = MeasureSkeletons(map, surface.dx, surface.dy);
    MeasureNeighbours(surface, map, grains.columns);

    const SGrainPoints points(map);
    const CMeasurer measurer(surface, threshold, kind, map, points);
    grains.coverage = GetCoverage(surface, points.points.size());
    for (SValues& column : grains.columns)
        column.values.resize(map.count);
    grains.areas.resize(map.count);
    grains.volumes.resize(map.count);
    ShareOut(points, map.count, [&](std::size_t first, std::size_t end) {
        // Column after column of some grains at a time: the columns lie far apart in memory.
        constexpr std::size_t c_block = 64;
        std::vector<SGrain> block;
        for (; first < end; first += block.size()) {
            block.clear();
            for (std::size_t i = first; i < std::min(first + c_block, end); ++i)
                block.push_back(measurer.Measure(i));
            const auto at = static_cast<std::ptrdiff_t>(first);
            for (std::size_t c = 0; c < measures.size(); ++c)
                if (measures[c]->get != nullptr) // the others have passes of their own
                    std::ranges::transform(block, grains.columns[c].values.begin() + at, measures[c]->get);
            std::ranges::transform(block, grains.areas.begin() + at, &SGrain::area);
            std::ranges::transform(block, grains.volumes.begin() + at,
                                   [](const SGrain& g) { return g.heights.volume; });
        }
    });
    return grains;
}

std::vector<SValue> ComputeGrainStatistics(const SGrains& grains, const SValues& column, double share)
{
    std::vector<SValue> statistics = ComputeStatistics(column.values, share);
    const SWeighted byArea = ComputeWeighted(column.values, grains.areas);
    const SWeighted byVolume = ComputeWeighted(column.values, grains.volumes);
    statistics.push_back({"Mode", ComputeMode(column.values)});
    statistics.push_back({"MeanWeightArea", byArea.mean});
    statistics.push_back({"SDWeightArea", byArea.sd});
    statistics.push_back({"MeanWeightVolume", byVolume.mean});
    statistics.push_back({"SDWeightVolume", byVolume.sd});
    return statistics;
}

} // namespace CommonUI::Analysis
