#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <vector>

namespace CommonUI::Analysis
{

/// Feature parameters of ISO 25178-2, of the hills and dales that are left after pruning at 5 % of Sz. A peak
/// or pit at the edge, which is the border of the surface and what lies beside missing points, is none; a
/// hill or dale is closed if none of its points is there.
///
/// - Spd: peaks per area of the valid points: 1/m². 0 without any.
/// - Spc: mean curvature of the peaks, see ComputeCurvature: 1/m
/// - S5p, S5v, S10z: mean height of the five highest peaks above the mean of the heights, mean depth of the
///   five deepest pits below it, and the sum: m
/// - Sda, Sha: mean area of the closed dales, and hills: m²
/// - Sdv, Shv: mean volume of the closed dales below, and hills above, the saddle at which each meets
///   another: m³
///
/// @return all in this order, with the reason where one is not defined
/// @throws ETooManyPoints as FindWatersheds does
COMMONUIANALYSIS_API std::vector<SValue> ComputeFeatureParameters(const SSurface& surface);

} // namespace CommonUI::Analysis
