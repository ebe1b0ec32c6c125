#pragma once

#include "analysis/grain/detail/GrainHeights.h"
#include "analysis/grain/detail/GrainHull.h"
#include "analysis/grain/detail/GrainOutline.h"
#include "analysis/grain/Neighbours.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace CommonUI::Analysis
{

/// All that the quantities of one grain derive from.
struct SGrain {
    bool isPore;
    std::size_t id; ///< from 1
    std::size_t points;
    double threshold;
    double dx;
    double dy;
    double area;       ///< without holes
    std::size_t width; ///< points of a line of the map
    SPosition centre;
    SGrainHeights heights{};
    SGrainOutline outline{};
    SGrainHull hull{};

    /// Position of a point of the map.
    double GetX(std::size_t point) const { return GetMiddle(point % width) * dx; }
    double GetY(std::size_t point) const { return GetMiddle(point / width) * dy; }

    /// A value that only particles have, or only pores.
    double OfParticle(double value) const { return isPore ? c_undefined : value; }
    double OfPore(double value) const { return isPore ? value : c_undefined; }

    /// Diameter of the circle of the same area.
    double GetHeywoodDiameter() const;
    /// The longer side of the rectangle that has the outline's area and perimeter (ISO 9276-6, geodesic
    /// length); NaN for an outline rounder than a square.
    double GetFiberLength() const;
    /// How flat the top of a particle or the bottom of a pore is; NaN if it does not leave the threshold.
    double GetPlateauIndex() const;
    /// The direction of the length towards the end that is farther from the centre: -180 to 180.
    double GetAngle() const;

private:
    static double GetMiddle(std::size_t cell) { return static_cast<double>(cell) + 0.5; }
};

/// The quantity that takes a pass over the map of its own.
inline constexpr std::string_view c_skeletonKey = "TotalFiberLength";

/// A quantity of grains by its key.
struct SGrainMeasure {
    std::string_view key;
    double (*get)(const SGrain&); ///< null for that of the skeleton and those of neighbours
};

/// All quantities, in the order in which they are listed.
std::span<const SGrainMeasure> GetGrainMeasures();

/// A quantity of a grain's neighbour.
struct SNeighbourMeasure {
    std::string_view key;
    double (*get)(const SNeighbour&);
};

std::span<const SNeighbourMeasure> GetNeighbourMeasures();

} // namespace CommonUI::Analysis
