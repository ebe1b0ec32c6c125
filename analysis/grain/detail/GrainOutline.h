#pragma once

#include "analysis/grain/Grains.h"

namespace CommonUI::Analysis
{

/// What the outer edge of a grain's cells comes to. Positions count from the corner of the map.
struct SGrainOutline {
    /// Length of a string pulled tight around the grain in the band of cells next to it: the
    /// minimum-perimeter polygon (Sklansky, Chazin and Hansen 1972; Klette and Rosenfeld 2004). It is exact
    /// for rectangles and tends to the true length of any other outline as the spacing falls, which the
    /// length of the cells' edges does not.
    double perimeter = 0;
    double area = 0;    ///< enclosed area, holes included
    double centreX = 0; ///< centroid of that area
    double centreY = 0;
    double lowest = 0; ///< heights of the points whose cells have edges in the outline
    double highest = 0;
    double mean = 0; ///< in which a point counts once for each such edge
};

/// Follows the outline of a grain in time proportional to its length.
/// @param map the grains of the surface
/// @param first index of the grain's first point
SGrainOutline TraceOutline(const SSurface& surface, const SGrainMap& map, std::size_t first);

} // namespace CommonUI::Analysis
