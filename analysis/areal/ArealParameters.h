#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <span>
#include <string_view>
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
/// Spatial parameters:
/// - Sal, Str: shortest distance at which the autocorrelation falls to 0.2, and this divided by the longest:
///   m, 1. See CAutocorrelation.
/// - Std: texture direction, degrees from x towards y, above -90 and up to 90: that in which the angular
///   power spectrum is greatest, so that the ridges and grooves of the dominant waves run at right angles to
///   it. NaN for a flat surface and for a single line.
/// - Scl20, Scl37, Str20, Str37 (not of the standard): as Sal and Str, at 0.20 and at 0.37
/// - Stdi (not of the standard): mean of the angular spectrum divided by its maximum: 0 to 1
/// - Srw, Srwi (not of the standard): wavelength at the maximum of the radial spectrum, and its mean divided
///   by its maximum: m, 1
/// - Sfd (not of the standard): fractal dimension, 2 to 3, from the fall of the power with the frequency
///
/// Where the autocorrelation does not fall so far within half the surface, Sal and Scl are NaN if that is so
/// in all directions, and Str is NaN if it is so in one, as along the grooves of a regular grating.
///
/// Hybrid parameters. The standard defines them by integrals over a continuous surface; here each cell of
/// four valid neighbouring points is divided into two triangles, and the means are taken over both ways to
/// divide it. Both parameters are of these triangles, so that Sdr ≤ Sdq² / 2 on every surface:
/// - Sdq: root mean square of the triangles' gradient
/// - Sdr: what the triangles' areas have in excess of the cell's own, in percent
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
/// Feature parameters Spd, Spc, S5p, S5v, S10z, Sda, Sha, Sdv, Shv: see ComputeFeatureParameters
///
/// Count is the number of valid points. Missing points are left out; for the spatial parameters they count as
/// points of mean height. A parameter that the points do not allow is NaN.
/// @return all parameters in the order above, which starts with Sa and ends with Count
/// @throws ENoPoints when all points are missing
/// @throws ETooManyPoints as ComputeFeatureParameters does
COMMONUIANALYSIS_API std::vector<SValue> ComputeAreal(const SSurface& surface);

/// Likewise, but nothing that only other parameters need is computed.
/// @param keys which parameters are wanted, in any order; others than those of GetArealQuantities are ignored
COMMONUIANALYSIS_API std::vector<SValue> ComputeAreal(const SSurface& surface,
                                                      std::span<const std::string_view> keys);

/// What ComputeAreal computes, in its order.
COMMONUIANALYSIS_API std::vector<SQuantity> GetArealQuantities();

} // namespace CommonUI::Analysis
