#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Value.h"
#include "SplitProfile.h"

#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// Below what valleys lie.
enum class EReferenceLine {
    MeanLine,    ///< the mean of the primary profile
    Regression0, ///< the line of a robust Gaussian regression of order 0 (ISO 16610-31)
    Regression2  ///< of order 2, which follows a bow, too
};

/// How valleys that may hold a lubricant are found.
struct SValleyMethod {
    EReferenceLine line = EReferenceLine::Regression2; ///< below which they lie
    /// The cut-off divided by the length of the horizontal line with which the profile is closed before the
    /// first regression; above 0.
    double closingRatio = 2;
};

/// Parameters of the valleys of a profile, which no standard defines. A valley is where the profile lies
/// below its reference line and goes down there by 5 % or more of the height of the profile about the line.
/// Its edges lie 1 % of that height below the line: a plateau that the line nearly follows would otherwise
/// join the valleys beside it. A valley that an end of the profile cuts off only counts for rMa and rMv.
///
/// - Msm: mean distance of the middles of neighbours, m; NaN for fewer than two
/// - rMn: number divided by the length of the profile, 1/m
/// - rMd, rMx, rMs: mean, maximum and standard deviation (n - 1) of the depths below the line, m
/// - rMw: mean width between the edges, m
/// - rMa: sum of the widths divided by the length of the profile, percent
/// - rMv: area between line and profile in the valleys divided by the length of the profile, m
///
/// All are NaN where points are missing, and without a usable cut-off where the line needs one.
/// @param primary heights in m without form, see CProfileSplitter::RemoveForm
/// @return the keys Msm, rMn, rMd, rMx, rMw, rMs, rMa, rMv
COMMONUIANALYSIS_API std::vector<SValue> ComputeValleys(std::span<const double> primary,
                                                        const CProfileSplitter& splitter,
                                                        const SValleyMethod& method);

/// What ComputeValleys computes, in its order.
COMMONUIANALYSIS_API std::vector<SQuantity> GetValleyQuantities();

} // namespace CommonUI::Analysis
