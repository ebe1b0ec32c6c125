#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"
#include "Motifs.h"
#include "Valleys.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// How profiles are evaluated.
struct SProfileMethod {
    /// λc in m, by default DefaultCutoff. If it is not greater than twice the spacing of the points, longer
    /// than the profile or NaN, what needs the profile filter is NaN.
    std::optional<double> cutoff{};
    std::optional<SMotifLimits> motifLimits{}; ///< by default DefaultMotifLimits
    SValleyMethod valleys{};                   ///< how they are found
};

/// Parameters of one profile.
///
/// The family Ra … Rdq is of the profile as it is, evaluated as a whole: no filter, and one sampling length,
/// the evaluation length; z is the height above its mean. The families 4287Ra …, 4287Wa …, 4287Pa … are those
/// of the roughness, waviness and primary profile, see ComputeIso4287. Those of the core, p13565_2Rk …, of
/// motifs, p12085_RAr …, and of valleys, Msm …, are described at ComputeIso13565, ComputeMotifs and
/// ComputeValleys.
///
/// - Ra = Σ|z|/n, Rq = √(Σz²/n), Rsk = Σz³/(n Rq³), Rku = Σz⁴/(n Rq⁴) (ISO 4287): m, m, 1, 1
/// - Rp = max z, Rv = -min z, Rt = Rp + Rv; Rmean, Rmin, Rmax are the heights themselves: m
/// - Rz: ten point height of ISO 4287-1:1984, the mean of the five highest peaks plus the mean of the five
///   deepest valleys. A peak or valley is a portion between two crossings of the mean line, or at an end.
///   NaN with fewer than five.
/// - RSm: mean spacing of the profile elements (ISO 4287), see ComputeElements: m. Their least width is 1 %
///   of the cut-off. NaN without a whole one.
/// - Rdq: root mean square slope, see ComputeSlope
///
/// Missing points are left out. Rz and RSm need an unbroken profile and are NaN if a point is missing; all
/// are NaN if all points are.
/// @param heights in m, missing points NaN
/// @param dx spacing of the points in m, greater than 0
/// @return the parameters in catalogue order: Ra Rq Rsk Rku Rp Rv Rz Rt Rmean Rmin Rmax RSm Rdq, then those
///     of ComputeIso4287 of the roughness, waviness and primary profile, ComputeIso13565, ComputeMotifs and
///     ComputeValleys
COMMONUIANALYSIS_API std::vector<SValue> ComputeProfile(std::span<const double> heights, double dx,
                                                        const SProfileMethod& method = {});

/// One of these parameters, for which nothing is computed that only other families need; NaN for an unknown
/// key.
COMMONUIANALYSIS_API SValue ComputeProfileValue(std::span<const double> heights, double dx,
                                                std::string_view key, const SProfileMethod& method = {});

/// ComputeProfile for each line, its keys in the same order. Empty for a surface without lines.
COMMONUIANALYSIS_API std::vector<SValues> ComputeProfiles(const SSurface& surface,
                                                          const SProfileMethod& method = {});

/// Likewise, but nothing that only other parameters need is computed.
/// @param keys which parameters are wanted, in any order; others than those of GetProfileQuantities are
///     ignored
COMMONUIANALYSIS_API std::vector<SValues> ComputeProfiles(const SSurface& surface,
                                                          std::span<const std::string_view> keys,
                                                          const SProfileMethod& method = {});

/// What ComputeProfile computes, in its order.
COMMONUIANALYSIS_API std::vector<SQuantity> GetProfileQuantities();

} // namespace CommonUI::Analysis
