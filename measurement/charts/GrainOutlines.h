#pragma once

#include "../../analysis/grain/Grains.h"
#include "../../export/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace CommonUI::Measurement
{

/// Where the number of a grain may stand in its picture: within a cell of the grain, next to its centre.
struct SGrainNumber {
    std::uint32_t label = 0; ///< of the grain in its map
    double x = 0;            ///< in cells of the outlines
    double y = 0;            ///< in cells of the outlines
};

/// The outlines of grains in a picture.
struct SGrainOutlines {
    std::size_t columns = 0; ///< cells of the picture
    std::size_t rows = 0;    ///< cells of the picture
    /// Of an SVG path along the edges of cells, y downwards from the last line of the map: y upwards is y of
    /// the surface.
    std::string path{};
    std::vector<SGrainNumber> numbers{}; ///< of the largest grains, these first
};

/// Follows the outlines of all grains, around their holes, too. There are no more than 512 cells along a
/// side, and fewer where the outlines would be too long for a page: then a cell is that of the point in its
/// middle, and small grains may be lost.
/// @param mostNumbers how many grains have numbers at most
COMMONUIMEASUREMENT_API SGrainOutlines MakeGrainOutlines(const Analysis::SGrainMap& map,
                                                         std::size_t mostNumbers);

} // namespace CommonUI::Measurement
