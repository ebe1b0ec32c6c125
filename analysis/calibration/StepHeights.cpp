#include "analysis/calibration/StepHeights.h"

#include "analysis/calibration/detail/Sections.h"
#include "analysis/form/PlaneCorrection.h"
#include "analysis/form/Tilt.h"
#include "analysis/numeric/detail/Parallel.h"
#include "analysis/surface/Decimate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_leastSeparation = 5; // of the levels, in standard deviations around them

// The two levels of heights.
struct SLevels {
    double low = 0;
    double high = 0;
    bool areGrooves = false; // whether fewer heights are low
    bool areApart = false;

    double GetMiddle() const { return (low + high) / 2; }
};

// The heights on one side of a threshold.
struct SClass {
    double count = 0;
    double sum = 0;
    double squares = 0;

    double GetMean() const { return sum / count; }
    void Add(double z)
    {
        ++count;
        sum += z;
        squares += z * z;
    }
};

// The means of the heights above and below the middle of both (Ridler and Calvard 1978), in values from -1
// to 1.
SLevels FindLevels(std::span<const double> heights)
{
    double lowest = c_missing;
    double highest = c_missing;
    for (const double z : heights) {
        lowest = std::fmin(lowest, z);
        highest = std::fmax(highest, z);
    }
    const double offset = (lowest + highest) / 2;
    const double unit = (highest - lowest) / 2;
    SLevels levels;
    if (!(unit > 0))
        return levels;
    SClass below;
    SClass above;
    double threshold = 0;
    constexpr int c_most = 50;
    for (int i = 0; i < c_most; ++i) {
        below = above = {};
        for (const double height : heights)
            if (const double z = (height - offset) / unit; !std::isnan(z))
                (z < threshold ? below : above).Add(z);
        const double next = (below.GetMean() + above.GetMean()) / 2;
        if (std::fabs(next - threshold) < 1e-6)
            break;
        threshold = next;
    }
    const double count = below.count + above.count;
    const double variance =
        (below.squares - below.sum * below.GetMean() + above.squares - above.sum * above.GetMean()) / count;
    const double apart = above.GetMean() - below.GetMean();
    levels.low = offset + unit * below.GetMean();
    levels.high = offset + unit * above.GetMean();
    levels.areGrooves = below.count <= above.count;
    levels.areApart = apart > c_leastSeparation * std::sqrt(std::max(variance, 0.0));
    return levels;
}

// Where a section goes from one level to the other.
struct SEdge {
    double place; // in points
    bool isUp;
};

std::vector<SEdge> FindEdges(std::span<const double> heights, const SLevels& levels)
{
    const double middle = levels.GetMiddle();
    const double band = (levels.high - levels.low) / 4;
    std::vector<SEdge> edges;
    int side = 0;
    std::optional<double> crossing;
    double last = c_missing; // the height of the last point that was there, less the middle
    double lastPlace = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const double z = heights[i] - middle;
        if (std::isnan(z))
            continue;
        const auto place = static_cast<double>(i);
        if (last * z < 0 || (z == 0 && last != 0))
            crossing = lastPlace + (place - lastPlace) * last / (last - z);
        last = z;
        lastPlace = place;
        const int reached = z > band ? 1 : (z < -band ? -1 : side);
        if (reached == side)
            continue;
        if (side != 0 && crossing)
            edges.push_back({*crossing, reached > 0});
        side = reached;
    }
    return edges;
}

// Sums of the fit of two parallel lines.
class CParallelLines
{
public:
    // Takes the points of a range of places, borders included.
    // @return whether there are at least two
    bool Add(std::span<const double> heights, double first, double last, double side)
    {
        std::size_t count = 0;
        const auto begin = static_cast<std::size_t>(std::ceil(std::max(first, 0.0)));
        for (std::size_t i = begin; i < heights.size() && static_cast<double>(i) <= last; ++i) {
            if (std::isnan(heights[i]))
                continue;
            m_points.push_back({static_cast<double>(i), heights[i], side});
            ++count;
        }
        return count >= 2;
    }

    // The distance of the lines along z.
    double GetDistance() const
    {
        SPoint mean{};
        const auto count = static_cast<double>(m_points.size());
        for (const SPoint& point : m_points) {
            mean.x += point.x / count;
            mean.z += point.z / count;
            mean.side += point.side / count;
        }
        double xx = 0, xs = 0, ss = 0, xz = 0, sz = 0;
        for (const SPoint& point : m_points) {
            const double x = point.x - mean.x;
            const double z = point.z - mean.z;
            const double side = point.side - mean.side;
            xx += x * x;
            xs += x * side;
            ss += side * side;
            xz += x * z;
            sz += side * z;
        }
        return 2 * (sz * xx - xz * xs) / (ss * xx - xs * xs);
    }

private:
    struct SPoint {
        double x;
        double z;
        double side;
    };
    std::vector<SPoint> m_points{};
};

// What counts beside an edge, in points away from it.
struct SRange {
    double first;
    double last;
};

// @param room up to the next edge or the end of the section
SRange GetSide(double width, double room, bool endsAtEdge)
{
    const double least = std::min(width, room) / 3;
    return {least, std::min(width, endsAtEdge ? room - least : room)};
}

// The height of the groove or ridge between an edge and the next.
std::optional<double> MeasureBetween(std::span<const double> heights, std::span<const SEdge> edges,
                                     std::size_t index)
{
    const double left = edges[index].place;
    const double right = edges[index + 1].place;
    const double width = right - left;
    const bool hasPrevious = index > 0;
    const bool hasNext = index + 2 < edges.size();
    const double end = static_cast<double>(heights.size()) - 1;
    const SRange before = GetSide(width, left - (hasPrevious ? edges[index - 1].place : 0), hasPrevious);
    const SRange behind = GetSide(width, (hasNext ? edges[index + 2].place : end) - right, hasNext);
    CParallelLines lines;
    const bool isWhole = lines.Add(heights, left - before.last, left - before.first, 1) &&
                         lines.Add(heights, left + width / 3, right - width / 3, -1) &&
                         lines.Add(heights, right + behind.first, right + behind.last, 1);
    return isWhole ? std::optional(std::fabs(lines.GetDistance())) : std::nullopt;
}

std::optional<double> MeasureAt(std::span<const double> heights, double edge)
{
    const double width = std::min(edge, static_cast<double>(heights.size()) - 1 - edge);
    CParallelLines lines;
    const bool isWhole = lines.Add(heights, edge - width, edge - width / 3, 1) &&
                         lines.Add(heights, edge + width / 3, edge + width, -1);
    return isWhole ? std::optional(std::fabs(lines.GetDistance())) : std::nullopt;
}

std::vector<double> MeasureSection(std::span<const double> heights, std::span<const SEdge> edges,
                                   bool areGrooves)
{
    std::vector<double> steps;
    const auto take = [&steps](std::optional<double> height) {
        if (height)
            steps.push_back(*height);
    };
    if (edges.size() == 1)
        take(MeasureAt(heights, edges.front().place));
    for (std::size_t i = 0; i + 1 < edges.size(); ++i)
        if (edges[i].isUp != areGrooves)
            take(MeasureBetween(heights, edges, i));
    return steps;
}

using CEdges = std::vector<std::vector<SEdge>>;

CEdges FindAllEdges(const CSections& sections, const SLevels& levels)
{
    CEdges edges(sections.GetCount());
    ComputeInShares(edges.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            edges[i] = FindEdges(sections.Get(i), levels);
    });
    return edges;
}

std::size_t CountEdges(const CEdges& edges)
{
    std::size_t count = 0;
    for (const auto& section : edges)
        count += section.size();
    return count;
}

// A copy without the plane that its terraces share. Of a large surface fewer points tell the plane.
SSurface RemoveTerracePlane(SSurface surface)
{
    constexpr std::size_t c_mostPoints = 512;
    SSurface plane = Decimate(surface, c_mostPoints);
    SSurface level = plane;
    Correct(level, {ECorrectionScope::Global, ECorrectionMethod::StepWizard, 1});
    for (std::size_t i = 0; i < plane.heights.size(); ++i)
        plane.heights[i] -= level.heights[i];
    const STilt tilt = MeasureTilt(plane);
    if (!tilt.reason.empty())
        return surface;
    for (std::size_t y = 0; y < surface.lines; ++y)
        for (std::size_t x = 0; x < surface.points; ++x)
            surface.heights[y * surface.points + x] -= static_cast<double>(x) * surface.dx * tilt.slopeX +
                                                       static_cast<double>(y) * surface.dy * tilt.slopeY;
    return surface;
}

} // namespace

std::vector<double> SSteps::GetHeights() const
{
    std::vector<double> heights;
    for (const auto& section : sections)
        heights.insert(heights.end(), section.begin(), section.end());
    return heights;
}

SSteps MeasureSteps(const SSurface& surface)
{
    const SSurface level = RemoveTerracePlane(surface); // to find the edges in
    const SLevels levels = FindLevels(level.heights);
    if (!levels.areApart)
        return {.reason = "the heights do not lie at two levels"};
    SSteps steps{.areGrooves = levels.areGrooves};
    CEdges edges = FindAllEdges(CSections(level, false), levels);
    if (!surface.IsProfile()) {
        CEdges across = FindAllEdges(CSections(level, true), levels);
        steps.isAlongY = CountEdges(across) > CountEdges(edges);
        if (steps.isAlongY)
            edges = std::move(across);
    }
    const CSections sections(surface, steps.isAlongY);
    steps.sections.resize(edges.size());
    ComputeInShares(edges.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            steps.sections[i] = MeasureSection(sections.Get(i), edges[i], steps.areGrooves);
    });
    if (std::ranges::all_of(steps.sections, &std::vector<double>::empty))
        steps.reason = "no step has enough points on both of its levels";
    return steps;
}

} // namespace CommonUI::Analysis
