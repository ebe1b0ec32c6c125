#include "analysis/grain/detail/GrainHull.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_rounding = 1e-12; // less than that makes no difference

// Adds a corner to the side of a hull that turns one way only.
void Extend(SCorner corner, std::int64_t turn, std::vector<SCorner>& side)
{
    while (side.size() > 1 && turn * Cross(side[side.size() - 2], side.back(), corner) <= 0)
        side.pop_back();
    side.push_back(corner);
}

class CCalipers
{
public:
    CCalipers(std::span<const SCorner> hull, double dx, double dy)
        : m_hull(hull)
        , m_dx(dx)
        , m_dy(dy)
    {
    }

    double GetDistance(SCorner a, SCorner b) const
    {
        return std::hypot(static_cast<double>(b.x - a.x) * m_dx, static_cast<double>(b.y - a.y) * m_dy);
    }

    // Calls visit(a, b, c) for each edge from a to b and the first of the corners farthest from it.
    template<class FVisit>
    void Rotate(const FVisit& visit) const
    {
        std::size_t farthest = 1;
        for (std::size_t i = 0; i < m_hull.size(); ++i) {
            const SCorner a = m_hull[i];
            const SCorner b = GetCorner(i + 1);
            while (Cross(a, b, GetCorner(farthest + 1)) > Cross(a, b, GetCorner(farthest)))
                ++farthest;
            visit(a, b, GetCorner(farthest));
        }
    }

    // Feret diameter at right angles to the edge from a to b.
    double GetBreadth(SCorner a, SCorner b, SCorner opposite) const
    {
        return static_cast<double>(Cross(a, b, opposite)) * m_dx * m_dy / GetDistance(a, b);
    }

    // Feret diameter in the direction from a to b.
    double GetExtent(SCorner a, SCorner b) const
    {
        const double perLength = 1 / GetDistance(a, b);
        const double x = static_cast<double>(b.x - a.x) * m_dx * perLength;
        const double y = static_cast<double>(b.y - a.y) * m_dy * perLength;
        double least = 0;
        double greatest = 0;
        for (const SCorner corner : m_hull) {
            const SCorner from = corner - a;
            const double along =
                static_cast<double>(from.x) * m_dx * x + static_cast<double>(from.y) * m_dy * y;
            least = std::min(least, along);
            greatest = std::max(greatest, along);
        }
        return greatest - least;
    }

    // 0 to 180
    double GetDirection(SCorner a, SCorner b) const
    {
        const double angle =
            std::atan2(static_cast<double>(b.y - a.y) * m_dy, static_cast<double>(b.x - a.x) * m_dx) * 180 /
            std::numbers::pi;
        return angle < 0 ? angle + 180 : angle < 180 ? angle : 0;
    }

private:
    SCorner GetCorner(std::size_t i) const { return m_hull[i % m_hull.size()]; }

    std::span<const SCorner> m_hull;
    double m_dx;
    double m_dy;
};

void MeasureBounds(std::span<const SCorner> hull, double dx, double dy, SGrainHull& result)
{
    const auto [minX, maxX] = std::ranges::minmax(hull, {}, &SCorner::x);
    const auto [minY, maxY] = std::ranges::minmax(hull, {}, &SCorner::y);
    result.minX = static_cast<double>(minX.x) * dx;
    result.maxX = static_cast<double>(maxX.x) * dx;
    result.minY = static_cast<double>(minY.y) * dy;
    result.maxY = static_cast<double>(maxY.y) * dy;
}

void MeasureAlong(std::span<const SCorner> hull, double dx, double dy, SGrainHull& result)
{
    const double radians = result.orientation * std::numbers::pi / 180;
    result.firstAlong = std::numeric_limits<double>::infinity();
    result.lastAlong = -result.firstAlong;
    for (const SCorner corner : hull) {
        const double along = static_cast<double>(corner.x) * dx * std::cos(radians) +
                             static_cast<double>(corner.y) * dy * std::sin(radians);
        result.firstAlong = std::min(result.firstAlong, along);
        result.lastAlong = std::max(result.lastAlong, along);
    }
}

} // namespace

std::vector<SCorner> ComputeHull(std::span<const std::uint32_t> points, std::size_t width)
{
    // Each line's first and last cell, line after line, are all that can be corners: no sorting is needed.
    std::vector<SCorner> right;
    std::vector<SCorner> left;
    for (std::size_t i = 0; i < points.size();) {
        const std::size_t line = points[i] / width;
        const std::size_t first = points[i];
        while (i < points.size() && points[i] < (line + 1) * width)
            ++i;
        const auto y = static_cast<std::int64_t>(line);
        const auto begin = static_cast<std::int64_t>(first % width);
        const auto end = static_cast<std::int64_t>(points[i - 1] % width) + 1;
        for (const std::int64_t edge : {y, y + 1}) {
            Extend({end, edge}, 1, right);
            Extend({begin, edge}, -1, left);
        }
    }
    right.insert(right.end(), left.rbegin(), left.rend());
    return right;
}

SGrainHull MeasureHull(std::span<const SCorner> hull, double dx, double dy)
{
    const CCalipers calipers(hull, dx, dy);
    SGrainHull result{.breadth = std::numeric_limits<double>::infinity(), .orientation = -1};
    std::int64_t doubleArea = 0;
    calipers.Rotate([&](SCorner a, SCorner b, SCorner opposite) {
        result.breadth = std::min(result.breadth, calipers.GetBreadth(a, b, opposite));
        result.maxFeret =
            std::max({result.maxFeret, calipers.GetDistance(a, opposite), calipers.GetDistance(b, opposite)});
        result.perimeter += calipers.GetDistance(a, b);
        doubleArea += Cross(hull.front(), a, b);
    });
    result.area = static_cast<double>(doubleArea) / 2 * dx * dy;
    result.length = result.breadth; // rounding must not make it less
    calipers.Rotate([&](SCorner a, SCorner b, SCorner opposite) {
        if (calipers.GetBreadth(a, b, opposite) > result.breadth * (1 + c_rounding))
            return;
        const double length = calipers.GetExtent(a, b);
        if (result.orientation < 0 || length > result.length * (1 + c_rounding)) {
            result.length = std::max(length, result.breadth);
            result.orientation = calipers.GetDirection(a, b);
        }
    });
    MeasureBounds(hull, dx, dy, result);
    MeasureAlong(hull, dx, dy, result);
    return result;
}

} // namespace CommonUI::Analysis
