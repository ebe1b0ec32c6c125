#include "view/HeightTree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace SurfaceView
{

using CommonUI::Analysis::SSurface;

namespace
{

constexpr std::size_t c_side = 8; // of the smallest squares, in distances of points
// A ray that meets an edge does not slip through it by rounding.
constexpr double c_edge = 1e-9;

SPoint operator-(const SPoint& a, const SPoint& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

SPoint Cross(const SPoint& a, const SPoint& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double Dot(const SPoint& a, const SPoint& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

// Where the points of a surface lie in its block.
class CPlaces
{
public:
    CPlaces(std::size_t points, std::size_t lines, const SBox& box)
        : m_box(box)
        , m_stepX(2 * box.x / static_cast<double>(points - 1))
        , m_stepY(2 * box.y / static_cast<double>(lines - 1))
    {
    }
    double X(std::size_t column) const { return static_cast<double>(column) * m_stepX - m_box.x; }
    double Y(std::size_t line) const { return static_cast<double>(line) * m_stepY - m_box.y; }
    double Z(double height) const { return m_box.PlaceHeight(height); }

private:
    const SBox& m_box;
    double m_stepX;
    double m_stepY;
};

// Follows a ray to its first meeting with triangles.
class CTracer
{
public:
    explicit CTracer(const SRay& ray)
        : m_ray(ray)
    {
    }

    // Whether the ray comes through a cuboid nearer than what it has met.
    bool Enters(const SPoint& low, const SPoint& high) const
    {
        double from = 0;
        double to = m_distance;
        for (double SPoint::*const axis : {&SPoint::x, &SPoint::y, &SPoint::z}) {
            const double slope = m_ray.direction.*axis;
            const double a = low.*axis - m_ray.origin.*axis;
            const double b = high.*axis - m_ray.origin.*axis;
            if (slope == 0) {
                if (a > 0 || b < 0)
                    return false;
                continue;
            }
            from = std::max(from, std::min(a / slope, b / slope));
            to = std::min(to, std::max(a / slope, b / slope));
        }
        return from <= to;
    }

    // @param a, b, c anticlockwise as seen from outside
    void Meet(const SPoint& a, const SPoint& b, const SPoint& c)
    {
        const SPoint toB = b - a;
        const SPoint toC = c - a;
        const SPoint across = Cross(m_ray.direction, toC);
        const double volume = Dot(toB, across);
        if (volume == 0)
            return;
        const SPoint offset = m_ray.origin - a;
        const SPoint other = Cross(offset, toB);
        const double u = Dot(offset, across) / volume;
        const double v = Dot(m_ray.direction, other) / volume;
        const double distance = Dot(toC, other) / volume;
        if (u < -c_edge || v < -c_edge || u + v > 1 + c_edge || distance < 0 || distance >= m_distance)
            return;
        m_distance = distance;
        m_isOutside = volume > 0;
    }

    std::optional<CHeightTree::SHit> GetHit() const
    {
        if (!std::isfinite(m_distance))
            return {};
        const auto& [from, along] = m_ray;
        return CHeightTree::SHit{.place = {from.x + m_distance * along.x, from.y + m_distance * along.y,
                                           from.z + m_distance * along.z},
                                 .isOutside = m_isOutside};
    }

private:
    SRay m_ray;
    double m_distance = std::numeric_limits<double>::infinity();
    bool m_isOutside = false;
};

// The triangles of a mesh between four points.
void MeetSquare(CTracer& tracer, const SSurface& surface, const CPlaces& places, std::size_t column,
                std::size_t line)
{
    const auto at = [&](std::size_t x, std::size_t y) {
        return SPoint{places.X(x), places.Y(y), places.Z(surface.heights[y * surface.points + x])};
    };
    const std::array<SPoint, 4> corners{at(column, line), at(column + 1, line), at(column + 1, line + 1),
                                        at(column, line + 1)};
    std::array<SPoint, 4> present{};
    const auto end = std::ranges::copy_if(corners, present.begin(), [](const SPoint& corner) {
                         return !std::isnan(corner.z);
                     }).out;
    for (auto last = present.begin() + 2; last < end; ++last)
        tracer.Meet(present[0], *(last - 1), *last);
}

// Whether a cuboid may be seen; the eye is outside.
bool IsSeen(const SView& view, const SPoint& low, const SPoint& high)
{
    const CommonUI::SRect& viewport = view.viewport;
    bool isRight = true;
    bool isLeft = true;
    bool isAbove = true;
    bool isBelow = true;
    for (unsigned int i = 0; i < 8; ++i) {
        const SPixel pixel =
            view.Project({i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z});
        isRight = isRight && pixel.x > viewport.right + 1;
        isLeft = isLeft && pixel.x < viewport.left - 1;
        isAbove = isAbove && pixel.y > viewport.bottom + 1;
        isBelow = isBelow && pixel.y < viewport.top - 1;
    }
    return !isRight && !isLeft && !isAbove && !isBelow;
}

} // namespace

void CHeightTree::SSpan::Add(const SSpan& other)
{
    if (other.IsEmpty())
        return;
    lowest = IsEmpty() ? other.lowest : std::min(lowest, other.lowest);
    highest = std::max(highest, other.highest);
}

CHeightTree::CHeightTree(const SSurface& surface)
    : m_points(surface.points)
    , m_lines(surface.lines)
{
    m_levels.push_back(MakeSmallest(surface));
    while (m_levels.back().spans.size() > 1)
        m_levels.push_back(MakeLarger(m_levels.back()));
}

CHeightTree::SLevel CHeightTree::MakeSmallest(const SSurface& surface) const
{
    const auto count = [](std::size_t points) {
        return std::max<std::size_t>(1, (points + c_side - 2) / c_side);
    };
    SLevel level{.columns = count(m_points), .lines = count(m_lines)};
    level.spans.resize(level.columns * level.lines);
    for (std::size_t i = 0; i < level.spans.size(); ++i) {
        const SExtent extent = Bound({.column = i % level.columns, .line = i / level.columns});
        SSpan span{.lowest = std::numeric_limits<double>::infinity(),
                   .highest = -std::numeric_limits<double>::infinity()};
        for (std::size_t line = extent.first; line <= extent.last; ++line)
            for (const double height :
                 surface.GetLine(line).subspan(extent.left, extent.right - extent.left + 1)) {
                // In this order what is not a number is passed over.
                span.lowest = std::min(span.lowest, height);
                span.highest = std::max(span.highest, height);
            }
        level.spans[i].Add(span);
    }
    return level;
}

CHeightTree::SLevel CHeightTree::MakeLarger(const SLevel& level)
{
    SLevel larger{.columns = (level.columns + 1) / 2, .lines = (level.lines + 1) / 2};
    larger.spans.resize(larger.columns * larger.lines);
    for (std::size_t i = 0; i < level.spans.size(); ++i)
        larger.spans[i / level.columns / 2 * larger.columns + i % level.columns / 2].Add(level.spans[i]);
    return larger;
}

CHeightTree::SExtent CHeightTree::Bound(const SSquare& square) const
{
    const std::size_t side = c_side << square.level;
    return {.left = square.column * side,
            .right = std::min((square.column + 1) * side, m_points - 1),
            .first = square.line * side,
            .last = std::min((square.line + 1) * side, m_lines - 1)};
}

template<class FIsMeant, class FVisit>
void CHeightTree::Descend(const SSquare& square, FIsMeant& isMeant, FVisit& visit) const
{
    const SLevel& level = m_levels[square.level];
    SExtent extent = Bound(square);
    extent.heights = level.spans[square.line * level.columns + square.column];
    if (extent.heights.IsEmpty() || !isMeant(extent))
        return;
    if (square.level == 0) {
        visit(extent);
        return;
    }
    const SLevel& finer = m_levels[square.level - 1];
    for (std::size_t line = 2 * square.line; line < std::min(2 * square.line + 2, finer.lines); ++line)
        for (std::size_t column = 2 * square.column; column < std::min(2 * square.column + 2, finer.columns);
             ++column)
            Descend({.level = square.level - 1, .column = column, .line = line}, isMeant, visit);
}

SGridPart CHeightTree::FindSeen(const SBox& box, const SView& view) const
{
    if (m_levels.empty())
        return {};
    const CPlaces places(m_points, m_lines, box);
    std::optional<SExtent> seen;
    const auto isMeant = [&](const SExtent& square) {
        if (seen && seen->left <= square.left && square.right <= seen->right && seen->first <= square.first &&
            square.last <= seen->last)
            return false; // nothing new
        const bool isAtSide = square.left == 0 || square.right == m_points - 1 || square.first == 0 ||
                              square.last == m_lines - 1;
        const double lowest = isAtSide ? -box.z : places.Z(square.heights.lowest);
        return IsSeen(view, {places.X(square.left), places.Y(square.first), lowest},
                      {places.X(square.right), places.Y(square.last), places.Z(square.heights.highest)});
    };
    const auto add = [&](const SExtent& square) {
        if (!seen) {
            seen = square;
            return;
        }
        seen->left = std::min(seen->left, square.left);
        seen->right = std::max(seen->right, square.right);
        seen->first = std::min(seen->first, square.first);
        seen->last = std::max(seen->last, square.last);
    };
    Descend({.level = m_levels.size() - 1}, isMeant, add);
    if (!seen)
        return {};
    return {.column = seen->left,
            .line = seen->first,
            .points = seen->right - seen->left + 1,
            .lines = seen->last - seen->first + 1};
}

std::optional<CHeightTree::SHit> CHeightTree::FindHit(const SSurface& surface, const SBox& box,
                                                      const SRay& ray) const
{
    if (m_levels.empty())
        return {};
    const CPlaces places(m_points, m_lines, box);
    CTracer tracer(ray);
    const auto isMeant = [&](const SExtent& extent) {
        return tracer.Enters(
            {places.X(extent.left), places.Y(extent.first), places.Z(extent.heights.lowest)},
            {places.X(extent.right), places.Y(extent.last), places.Z(extent.heights.highest)});
    };
    const auto meet = [&](const SExtent& extent) {
        for (std::size_t line = extent.first; line < extent.last; ++line)
            for (std::size_t column = extent.left; column < extent.right; ++column)
                MeetSquare(tracer, surface, places, column, line);
    };
    Descend({.level = m_levels.size() - 1}, isMeant, meet);
    return tracer.GetHit();
}

} // namespace SurfaceView
