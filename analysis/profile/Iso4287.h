#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Value.h"
#include "SplitProfile.h"

#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Parameters of the profiles of ISO 4287:1997, whose letter L is R for roughness, W for waviness and P for
/// the primary profile. z is the height above the mean line: of R that of the filter, of W the line that was
/// removed as form, of P the mean.
///
/// - La = Σ|z|/n, Lq = √(Σz²/n), Lsk = Σz³/(n Lq³), Lku = Σz⁴/(n Lq⁴): m, m, 1, 1
/// - Lp = max z, Lv = -min z, Lz = Lp + Lv: m
/// - Lc, LSm: mean height and mean width of the profile elements, see ComputeElements: m. Their least width
///   is 1 % of the cut-off for R, W and P
/// - Ldq: root mean square slope, see ComputeSlope
/// - Lt: highest peak plus deepest valley in the evaluation length, the whole profile: m
///
/// Of R, those other than Rt are the means of their values in the sampling lengths, one cut-off each; a
/// sampling length in which one is not defined is left out of its mean. Of W and P the sampling length is the
/// evaluation length. Missing points are left out; Lc and LSm need an unbroken sampling length.
/// @param profile that of the need
/// @param need RoughnessProfile, WavinessProfile or PrimaryProfile
/// @return the keys 4287La … 4287Ldq in the order a q sk ku p v z c t Sm dq
COMMONUIANALYSIS_API std::vector<SValue> ComputeIso4287(ENeed need, std::span<const double> profile,
                                                        const CProfileSplitter& splitter);

/// What ComputeIso4287 computes for a need, in its order.
COMMONUIANALYSIS_API std::vector<SQuantity> GetIso4287Quantities(ENeed need);

/// Root mean square slope by the seven-point formula (ISO 4287), over the points with three valid neighbours
/// to either side; NaN without any.
/// @param z heights in m, missing points NaN
/// @param dx spacing of the points in m
COMMONUIANALYSIS_API double ComputeSlope(std::span<const double> z, double dx);

/// The heights above the mean line; empty if one is missing.
COMMONUIANALYSIS_API std::vector<double> GetUnbroken(std::span<const double> heights, double mean);

} // namespace CommonUI::Analysis
