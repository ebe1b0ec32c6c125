#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <vector>

namespace CommonUI::Analysis
{

/// A place on a surface, in m from its first point.
struct SPlace {
    double x = 0; ///< along the lines
    double y = 0; ///< across the lines

    friend bool operator==(const SPlace&, const SPlace&) = default;
};

/// The height at a place, bilinear between the points around it. A point that has no weight does not count,
/// so that at a point the height is its own.
/// @return NaN beside the surface, and where a point that counts is missing
COMMONUIANALYSIS_API double GetHeightAt(const SSurface& surface, const SPlace& place);

/// A profile along a straight line over a surface.
struct SLineProfile {
    double spacing = 0;            ///< of its points, m; 0 for a single one
    std::vector<double> heights{}; ///< the first and the last at the ends of the line; gaps are NaN

    double GetLength() const
    {
        return spacing * static_cast<double>(heights.size() - 1);
    } ///< between the first and the last point, m
};

/// Takes the heights along a line, about as far apart as the points of the surface: along x just dx, along y
/// dy, otherwise between both. A line whose ends have one place has one point.
COMMONUIANALYSIS_API SLineProfile ExtractProfile(const SSurface& surface, const SPlace& from,
                                                 const SPlace& to);

} // namespace CommonUI::Analysis
