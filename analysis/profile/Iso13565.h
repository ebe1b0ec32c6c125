#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Value.h"

#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Parameters of the core of a profile (ISO 13565-2:1996), read off the material ratio curve of its
/// evaluation length, the whole profile. The equivalent straight line is that of CMaterialRatio::ComputeCore.
///
/// - Rk: height of the core, m
/// - Rpk, Rvk: heights of triangles with the areas of the peaks above and of the valleys below the core, m
/// - Mr1, Mr2: material ratios where peaks end and where valleys begin, percent
///
/// Missing points are left out. All are NaN for fewer than four points.
/// @param profile roughness as of CProfileSplitter::SplitFilled, m
/// @return the keys p13565_2Rk, p13565_2Rpk, p13565_2Rvk, p13565_2Rmr1, p13565_2Rmr2
COMMONUIANALYSIS_API std::vector<SValue> ComputeIso13565(std::span<const double> profile);

/// What ComputeIso13565 computes, in its order.
COMMONUIANALYSIS_API std::vector<SQuantity> GetIso13565Quantities();

} // namespace CommonUI::Analysis
