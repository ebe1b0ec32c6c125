#include "analysis/tip/TipShape.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <span>
#include <utility>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_infinite = std::numeric_limits<double>::infinity();

// How far below the apex the highest point of the border is.
double FindClosedDepth(const SSurface& shape)
{
    double highest = -c_infinite;
    for (std::size_t y = 0; y < shape.lines; ++y)
        for (std::size_t x = 0; x < shape.points; ++x) {
            const bool isBorder =
                x == 0 || x + 1 == shape.points || (shape.lines > 1 && (y == 0 || y + 1 == shape.lines));
            if (isBorder)
                highest = std::max(highest, shape.heights[y * shape.points + x]);
        }
    return -highest;
}

// A point of a tip.
struct STipPoint {
    double distance; // from the axis
    double depth;    // below the apex
};

template<class FVisit>
void VisitPoints(const SSurface& shape, const FVisit& visit)
{
    const std::size_t middleX = shape.points / 2;
    const std::size_t middleY = shape.lines / 2;
    for (std::size_t line = 0; line < shape.lines; ++line)
        for (std::size_t point = 0; point < shape.points; ++point) {
            const double x = (static_cast<double>(point) - static_cast<double>(middleX)) * shape.dx;
            const double y = (static_cast<double>(line) - static_cast<double>(middleY)) * shape.dy;
            visit(STipPoint{std::hypot(x, y), -shape.heights[line * shape.points + point]});
        }
}

// The sphere r² + (t - R)² = R² with the least squares of r² + t² - 2Rt.
double FitRadius(const SSurface& shape, double depth)
{
    double products = 0;
    double squares = 0;
    VisitPoints(shape, [&](const STipPoint& point) {
        if (point.depth > depth)
            return;
        const double t = point.depth / depth;
        products += t * (point.distance * point.distance / depth + point.depth * t);
        squares += t * t;
    });
    return products / (2 * squares);
}

// Between the flanks that the straight line of depths over distances makes.
double FitConeAngle(const SSurface& shape, double from, double to)
{
    double count = 0, sumR = 0, sumT = 0, rr = 0, rt = 0;
    VisitPoints(shape, [&](const STipPoint& point) {
        if (point.depth < from || point.depth > to)
            return;
        const double r = point.distance / to;
        const double t = point.depth / to;
        ++count;
        sumR += r;
        sumT += t;
        rr += r * r;
        rt += r * t;
    });
    const double spread = rr - sumR * sumR / count;
    const double slope = (rt - sumR * sumT / count) / spread;
    if (!(spread > 1e-12 * rr && slope > 0))
        return c_undefined;
    return 2 * std::atan(1 / slope) * 180 / std::numbers::pi;
}

// The length of the part of a line in which it is above a depth, straight between the points.
double MeasureChord(std::span<const double> line, double spacing, double depth)
{
    double length = 0;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const double a = line[i] + depth;
        const double b = line[i + 1] + depth;
        if (a >= 0 && b >= 0)
            length += spacing;
        else if (std::max(a, b) > 0)
            length += spacing * std::max(a, b) / std::fabs(a - b);
    }
    return length;
}

} // namespace

STip MeasureTip(SSurface shape, double depth)
{
    STip tip;
    const double closed = FindClosedDepth(shape);
    if (!(closed > 0))
        return {.shape = std::move(shape), .reason = "the surface has no bump that shows the tip"};
    tip.height = std::min(depth, closed);
    tip.radius = FitRadius(shape, tip.height / 2);
    if (!std::isfinite(tip.radius)) // the apex is alone there
        tip.radius = FitRadius(shape, tip.height);
    if (!std::isfinite(tip.radius))
        tip.radius = c_undefined;
    tip.coneAngle = FitConeAngle(shape, tip.height / 2, tip.height);
    double sum = 0;
    for (std::size_t y = 0; y < shape.lines; ++y)
        sum += MeasureChord(shape.GetLine(y), shape.dx, tip.height);
    tip.width = sum;
    if (!shape.IsProfile()) {
        tip.area = sum * shape.dy;
        tip.width = 2 * std::sqrt(tip.area / std::numbers::pi);
    }
    tip.shape = std::move(shape);
    return tip;
}

} // namespace CommonUI::Analysis
