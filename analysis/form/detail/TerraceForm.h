#pragma once

#include "analysis/form/detail/PolynomialBasis.h"
#include "analysis/form/detail/SlopeFit.h"

#include <cstddef>

namespace CommonUI::Analysis
{

/// Removes the slope of a surface with steps, and its curvature, by a polynomial in x and y without a
/// constant. It is fitted to the differences of neighbouring points, where steps are rare. Differences
/// further from the others' median than five standard deviations (1.4826 times their median absolute
/// deviation) are left out, and the fit is repeated eight times on what it left.
/// @param grid changed in place; without a valid point nothing happens
/// @param smooth the same points with less noise, as from SmoothInside, whose differences are taken; changed
///     in the same way
/// @param order 1 or 2
void RemoveSlopes(const SGrid& grid, const SGrid& smooth, const SPairing& pairing, std::size_t order);

/// Removes what form RemoveSlopes has left of a surface with steps: z = polynomial(x, y) + a constant for
/// each terrace + noise, where a plain fit of the polynomial would tilt towards the steps.
///
/// 1. Terraces are found in the smoothed heights: windows of six times the noise that hold the most points,
///    at least 2 % of them, one after the other and at least a window apart; no more than 32. The noise is
///    the standard deviation that neighbouring points differ by. A point between two terraces, as on the
///    flank of a step, is on none, nor is one whose own height is more than a window off.
/// 2. Polynomial and constants are fitted together to the points on terraces. This and the search for
///    terraces are done twice.
/// 3. The mean of the terrace with the most points becomes 0.
///
/// Steps have to stand out of the smoothed differences, and terraces must be some six times the noise apart.
/// Where all terraces together hold less than 70 % of the points, as on a wavy surface, there are none to
/// speak of: the polynomial is fitted to all points, and the mean height becomes 0.
/// @param grid, smooth as for RemoveSlopes, smoothed again after that
/// @param pairing as for RemoveSlopes
void RemoveTerraceForm(const SGrid& grid, const SGrid& smooth, const SPairing& pairing, std::size_t order);

} // namespace CommonUI::Analysis
