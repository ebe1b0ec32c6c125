#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// The heights of the steps of a surface or a profile.
struct SSteps {
    /// Those of each section, m, always positive. Sections are the lines of the surface, or, where these
    /// cross fewer edges, its columns.
    std::vector<std::vector<double>> sections{};
    bool isAlongY = false;     ///< whether the sections are columns
    bool areGrooves = false;   ///< whether the steps lead down from their surroundings
    std::string_view reason{}; ///< why there is none

    /// Those of all sections.
    COMMONUIANALYSIS_API std::vector<double> GetHeights() const;
};

/// Measures grooves or ridges, whichever take less of the surface, by ISO 5436-1 type A: of one that is W
/// wide the middle third counts, and on both sides what lies between W/3 and W beyond the edge. Two
/// parallel straight lines are fitted, z = αx + β + hδ with δ = 1 on the sides and -1 in the middle; the
/// height is |2h|, so that a tilt does not matter. Where the next edge is nearer than 4W/3, what counts on
/// that side ends a third of W, or of the distance where that is shorter, before it.
///
/// A section with one edge alone is a step between two surfaces: of both counts what lies between W/3 and W
/// from the edge, W being the width of the narrower one.
///
/// Edges are where the heights, less the plane that the levels of the surface share (see
/// RemoveTerraceForm), cross the middle of their two levels from beyond a quarter of the step to beyond a
/// quarter on the other side. Heights of which the means above and below the middle are not five times as
/// far apart as heights spread around them have no steps.
COMMONUIANALYSIS_API SSteps MeasureSteps(const SSurface& surface);

} // namespace CommonUI::Analysis
