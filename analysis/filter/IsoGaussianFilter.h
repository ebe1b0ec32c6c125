#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

namespace CommonUI::Analysis
{

/// In which directions a filter takes means.
enum class EGaussianExtent {
    Profile, ///< each line for itself: ISO 11562, ISO 16610-21
    Areal    ///< along and across the lines: ISO 16610-61
};

/// Which waves a filter lets pass.
enum class EPass {
    Low, ///< those longer than the cut-off: λs or S filter
    High ///< the shorter ones, the surface less its mean surface: λc or L filter
};

/// Linear Gaussian filter with half the amplitude at the cut-off λc: of waves of the length λ the low pass
/// transmits exp(-π (α λc / λ)²), α = √(ln 2 / π), the high pass the rest.
///
/// The weights are those of CGaussianFilter along each line and, of the areal filter, across the lines, which
/// makes it a filter by the distance in the plane whatever the spacings. A surface of a single line or column
/// is filtered in its only direction. What CGaussianFilter tells of ends and missing points holds for borders
/// and missing points in both directions.
struct SIsoGaussianFilter {
    EGaussianExtent extent = EGaussianExtent::Areal; ///< along the lines alone, or over the plane
    EPass pass = EPass::High;                        ///< which waves are kept
    double cutoff = 0;                               ///< in m; 0 where the share gives it
    /// The cut-off as a share of the evaluation length, points * dx of each line; of the areal filter the
    /// shorter of the surface's sides.
    double share = 0;
};

/// What is to be said of a cut-off on a surface.
enum class ECutoff {
    Usable,
    TooShort, ///< not greater than twice the spacing of the points
    TooLong,  ///< longer than a side of the surface
    Undefined ///< not a number greater than 0, as without a spacing or a point
};

/// The cut-off in m, as the filter gives it or by its share.
COMMONUIANALYSIS_API double GetCutoff(const SSurface& surface, const SIsoGaussianFilter& filter);

/// Whether the cut-off suits the surface, in each direction that is filtered.
COMMONUIANALYSIS_API ECutoff CheckCutoff(const SSurface& surface, const SIsoGaussianFilter& filter);

/// Missing points stay missing and have no weight. Runs in several threads.
/// @param filter with a usable cut-off
COMMONUIANALYSIS_API SSurface FilterIsoGaussian(const SSurface& surface, const SIsoGaussianFilter& filter);

} // namespace CommonUI::Analysis
