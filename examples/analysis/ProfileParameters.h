#pragma once

#include "Surface.h"
#include "Value.h"

#include <span>
#include <string_view>
#include <vector>

namespace SurfaceAnalysis
{

/// Parameters of one profile, evaluated as a whole: no filter, and one sampling length, the evaluation
/// length.
///
/// The family Ra … Rdq is of the profile as it is, z being the height above its mean. The family 4287Pa …
/// 4287Pdq is of the primary profile of ISO 4287:1997, from which the nominal form has been removed: here
/// the least-squares line. No λs filter is applied.
///
/// - Ra = Σ|z|/n, Rq = √(Σz²/n), Rsk = Σz³/(n Rq³), Rku = Σz⁴/(n Rq⁴) (ISO 4287): m, m, 1, 1
/// - Rp = max z, Rv = -min z, Rt = Rp + Rv; Rmean, Rmin, Rmax are the heights themselves: m
/// - Rz: ten point height of ISO 4287-1:1984, the mean of the five highest peaks plus the mean of the five
///   deepest valleys. A peak or valley is a portion between two crossings of the mean line, or at an end.
///   NaN with fewer than five.
/// - RSm: mean spacing of the profile elements (ISO 4287), m. A peak or valley counts when it is higher
///   than 10 % of the total height and at least 1 % of the sampling length wide. Elements start at the
///   first crossing of the mean line that such portions have in common and end at the next in the same
///   direction. NaN without a whole element.
/// - Rdq: root mean square slope by the seven-point formula (ISO 4287), over the points with three valid
///   neighbours to either side
/// - Pa Pq Psk Pku Pp Pv PSm Pdq: likewise; Pz = Pt = Pp + Pv, as sampling and evaluation length are the
///   same; Pc: mean height of the profile elements (ISO 4287), m
///
/// Missing points are left out. Rz, RSm, PSm and Pc need an unbroken profile and are NaN if a point is
/// missing; all are NaN if all points are.
/// @param heights in m, missing points NaN
/// @param dx spacing of the points in m, greater than 0
/// @return the parameters in catalogue order: Ra Rq Rsk Rku Rp Rv Rz Rt Rmean Rmin Rmax RSm Rdq, 4287Pa
///     4287Pq 4287Psk 4287Pku 4287Pp 4287Pv 4287Pz 4287Pc 4287Pt 4287PSm 4287Pdq
std::vector<SValue> ComputeProfile(std::span<const double> heights, double dx);

/// One parameter of all lines of a surface.
using SLineValues = SValues;

/// ComputeProfile for each line, its keys in the same order. Empty for a surface without lines.
std::vector<SLineValues> ComputeProfiles(const SSurface& surface);

} // namespace SurfaceAnalysis
