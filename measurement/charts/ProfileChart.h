#pragma once

#include "../../export/Export.h"

#include <span>
#include <string>

namespace CommonUI::Measurement
{

/// Draws a profile without its least-squares line, with its mean line. Where the cut-off is usable there is
/// its waviness over it and its roughness in a second plot below, with the cut-off and the borders of the
/// sampling lengths. The first point lies at half a spacing, as the points of a map do. Gaps are left open.
/// @param heights m, missing points NaN
/// @param dx spacing of the points in m, greater than 0
/// @param cutoff of the profile filter, m
/// @return an SVG element; empty without a valid point
COMMONUIMEASUREMENT_API std::string DrawProfile(std::span<const double> heights, double dx, double cutoff);

} // namespace CommonUI::Measurement
