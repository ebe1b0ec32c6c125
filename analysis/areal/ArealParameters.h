#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <vector>

namespace CommonUI::Analysis
{

/// Areal parameters of a surface as it is: level and filter it before. All are of ISO 25178-2 unless said
/// otherwise.
///
/// Height parameters, z being the height above the mean of the n valid points:
/// - Sa = Σ|z|/n, Sq = √(Σz²/n), Ssk = Σz³/(n Sq³), Sku = Σz⁴/(n Sq⁴): m, m, 1, 1
/// - Sp = max z, Sv = -min z, Sz = Sp + Sv; Smean, Smin, Smax are the heights themselves, not relative to
///   the mean: m
///
/// Spatial parameters Sal, Str, Std, Scl20, Scl37, Str20, Str37: see ComputeSpatial.
///
/// Hybrid parameters. The standard defines them by integrals over a continuous surface; here:
/// - Sdq: root mean square of the gradient by central differences (z[i+1] - z[i-1]) / 2d, over the points
///   that are valid along with their four neighbours
/// - Sdr: each cell of four valid neighbouring points is four triangles that meet in the cell's centre at
///   the mean of the four heights; what they have in excess of the cell's own area, in percent
/// - S2A, S3A: projected and developed area of those cells, m² (not of the standard; Sdr = (S3A - S2A) /
///   S2A)
///
/// Parameters of the material ratio curve, see CMaterialRatio for the curve and units:
/// - Sk, Spk, Svk, Smr1, Smr2
/// - Sxp = Smc(2.5 %) - Smc(50 %): m
/// - Vmp = Vm(10 %), Vmc = Vm(80 %) - Vm(10 %), Vvc = Vv(10 %) - Vv(80 %), Vvv = Vv(80 %): volume per area,
///   m
/// - Sdc0_5 … Sdc50_95: Smc(first) - Smc(second), percents as in the key: m
///
/// Count is the number of valid points. Missing points are left out, but for the spatial
/// parameters. A parameter that the points
/// do not allow is NaN.
/// @param spatial whether the spatial parameters are computed, which take longer than all others together
/// @return the parameters in the order above, which starts with Sa and ends with Count
/// @throws ENoPoints when all points are missing
COMMONUIANALYSIS_API std::vector<SValue> ComputeAreal(const SSurface& surface, bool spatial = true);

} // namespace CommonUI::Analysis
