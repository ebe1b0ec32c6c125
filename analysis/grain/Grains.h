#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace CommonUI::Analysis
{

/// On which side of the threshold grains lie.
enum class EGrainKind {
    Particle, ///< points at or above it
    Pore      ///< points below it
};

/// A surface has too many points for the numbers of a map of grains.
class COMMONUIANALYSIS_API ETooManyPoints : public std::length_error
{
public:
    ETooManyPoints()
        : std::length_error("too many points to find grains in")
    {
    }
};

/// Which grain each point of a surface belongs to.
struct SGrainMap {
    std::size_t points = 0;  ///< of each line, as those of the surface
    std::size_t lines = 0;   ///< as those of the surface
    std::uint32_t count = 0; ///< of the grains
    /// Line after line, the number of the grain, from 1 to count, or 0 for a point of none. Grains are
    /// numbered by their first points in this order.
    std::vector<std::uint32_t> labels{};
};

/// Finds the grains of a surface: points on the same side of the threshold, connected by steps along x or y.
///
/// Each point stands for a rectangular cell, dx by dy, and cells that meet in no more than a corner share no
/// material: grains are 4-connected. What surrounds them is 8-connected in turn, so that a diagonal chain of
/// points does not enclose a hole. A missing point belongs to no grain.
///
/// Takes time proportional to the number of points whatever their pattern.
/// @param threshold a height; NaN finds no grain
/// @throws ETooManyPoints for 2³² points or more
COMMONUIANALYSIS_API SGrainMap FindGrains(const SSurface& surface, double threshold, EGrainKind kind);

/// Which of the grains that are found count.
struct SGrainSelection {
    double minimumArea = 0;        ///< of their cells, m²; smaller ones are left out
    std::size_t minimumPoints = 1; ///< grains of fewer points are left out
    bool includesEdge = true;      ///< those that touch the border of the surface

    /// Whether all count.
    bool IsAll() const noexcept { return !(minimumArea > 0) && minimumPoints <= 1 && includesEdge; }
};

/// Leaves out the grains that do not count. The others keep their order and are numbered anew.
/// @param cell the area of a point, m²
COMMONUIANALYSIS_API void SelectGrains(SGrainMap& map, const SGrainSelection& selection, double cell);

} // namespace CommonUI::Analysis
