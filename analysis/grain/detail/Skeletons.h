#pragma once

#include "analysis/grain/Grains.h"

#include <vector>

namespace CommonUI::Analysis
{

/// The total length of the skeleton of each grain: of the lines, one cell wide, that thinning leaves (Guo and
/// Hall 1989), along chords within 3/4 of a cell of it, each end lengthened straight on to the edge of the
/// grain's cells. A skeleton of one cell is as long as the greatest circle about it is wide.
///
/// A twig that does not reach twice as far as the edge is away from where it grows is cut: it comes from a
/// corner or a bump of the outline, not from a branch.
///
/// Takes time proportional to the number of points.
std::vector<double> MeasureSkeletons(const SGrainMap& map, double dx, double dy);

} // namespace CommonUI::Analysis
