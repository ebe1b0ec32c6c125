#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"
#include "Watershed.h"

#include <cstdint>
#include <vector>

namespace CommonUI::Analysis
{

/// A saddle at which dales meet that were apart before, as water that rises everywhere finds them; or hills,
/// as water that falls lays them bare.
struct SMeeting {
    double height = 0;       ///< of the saddle
    std::uint32_t point = 0; ///< index of the saddle
    /// Numbers of the two hills or dales on both sides of the saddle.
    std::uint32_t first = 0;
    std::uint32_t second = 0; ///< of the other one
    /// Number of the hill whose peak ends here: of those that can be reached from the saddle without going
    /// below it, on the side whose highest one is lower, the highest. Likewise for dales and their pits.
    std::uint32_t ending = 0;
    /// How high this peak is above the saddle, or how deep this pit is below it.
    double extent = 0;
};

/// The change tree of a surface (ISO 25178-2) for its hills or its dales: their saddles in the order in which
/// the water reaches them. One meeting less than there are hills or dales, if missing points do not part
/// them.
///
/// Takes time proportional to the number of points, and that to sort the pairs of hills, or dales, that are
/// side by side.
/// @param map of the surface
COMMONUIANALYSIS_API std::vector<SMeeting> ComputeChangeTree(const SSurface& surface, const SFeatureMap& map);

/// What is left of hills or dales after pruning.
struct SPruned {
    SFeatureMap map{}; ///< numbers in the order of the first points of the hills or dales, line by line
    /// For each the height of the highest saddle at which a hill meets another, and of the lowest at which a
    /// dale does, where it overflows; NaN where there is no other.
    std::vector<double> saddles{};
};

/// Wolf pruning (ISO 25178-2): as long as a peak is less high above its saddle than it has to be, the one
/// that is the least becomes part of the hill on the other side of the saddle; so do pits. It is the same to
/// go through the saddles once in the order of the tree.
/// @param map that the tree is of; moved in, its memory serves the map that is left
/// @param leastExtent of what stays; one of just this height stays
COMMONUIANALYSIS_API SPruned PruneFeatures(SFeatureMap map, const std::vector<SMeeting>& tree,
                                           double leastExtent);

} // namespace CommonUI::Analysis
