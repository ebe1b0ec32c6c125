#pragma once

#include "analysis/grain/detail/Corner.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// What the convex hull of a grain's cells comes to. The Feret diameter in a direction is the distance of the
/// two lines at right angles to it that touch the grain.
struct SGrainHull {
    double perimeter = 0;
    double area = 0;
    double maxFeret = 0;    ///< greatest Feret diameter
    double breadth = 0;     ///< least Feret diameter
    double length = 0;      ///< Feret diameter at right angles to the breadth; not below it
    double orientation = 0; ///< direction of the length, degrees from the x to the y axis, 0 to 180
    double firstAlong =
        0; ///< between which positions the hull lies in this direction, from the corner of the map
    double lastAlong = 0;
    double minX = 0, minY = 0, maxX = 0, maxY = 0; ///< bounding rectangle
};

/// The corners of the convex hull of the points' cells, turning from x to y, none on the line between its
/// neighbours.
/// @param points at least one index of a point, rising
/// @param width points of a line
std::vector<SCorner> ComputeHull(std::span<const std::uint32_t> points, std::size_t width);

/// Measures a hull by rotating calipers, in time proportional to its corners.
/// @param hull as ComputeHull gives it
SGrainHull MeasureHull(std::span<const SCorner> hull, double dx, double dy);

} // namespace CommonUI::Analysis
