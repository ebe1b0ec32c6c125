#pragma once

#include "analysis/surface/Surface.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace CommonUI::Analysis
{

/// What the heights of a grain's points come to. Volumes are those of columns on the points' cells.
struct SGrainHeights {
    double lowest = 0;
    double highest = 0;
    std::size_t lowestPoint = 0; ///< index of the first such point
    std::size_t highestPoint = 0;
    double mean = 0;
    double median = 0;
    double sd = 0;         ///< about the mean, of all n points
    double meanOffset = 0; ///< mean of the heights above the threshold, which is below 0 for a pore
    double volume = 0;     ///< between the surface and the threshold, on either side
    double centreX = 0;    ///< centroid of that volume in x and y; NaN without volume
    double centreY = 0;
    double volumeAboveZero = 0; ///< between the surface and the height 0
    double volumeBelowZero = 0;
};

/// Takes time proportional to the points.
/// @param points indices of the points of a grain, at least one
SGrainHeights MeasureHeights(const SSurface& surface, std::span<const std::uint32_t> points,
                             double threshold);

} // namespace CommonUI::Analysis
