#pragma once

#include "../../export/Export.h"
#include "../surface/Value.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// A position on a surface, in m.
struct SPosition {
    double x = 0; ///< along the lines
    double y = 0; ///< across the lines
};

/// The nearest of a position's neighbours.
struct SNeighbour {
    std::size_t index = 0;         ///< of equally near ones the first
    double distance = c_undefined; ///< m; NaN without a neighbour
    /// Direction to it, degrees from the x to the y axis, -180 to 180; NaN at no distance.
    double angle = c_undefined;
};

/// The nearest neighbour of each position. Empty for fewer than two positions, which have none. Takes time
/// proportional to the number of positions if they are not crowded beyond measure, as the centres of grains
/// cannot be.
COMMONUIANALYSIS_API std::vector<SNeighbour> FindNeighbours(std::span<const SPosition> positions);

} // namespace CommonUI::Analysis
