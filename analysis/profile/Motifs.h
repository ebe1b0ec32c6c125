#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Value.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// How wide motifs are at most, in m (ISO 12085: A and B).
struct SMotifLimits {
    double roughness = 0.5e-3; ///< A
    double waviness = 2.5e-3;  ///< B
};

/// The limits that the standard recommends for the length of a profile: those whose evaluation length,
/// 0.64 mm, 3.2 mm or 16 mm, is nearest by ratio. They are 0.02 mm and 0.1 mm for profiles below 1.43 mm,
/// 0.1 mm and 0.5 mm below 7.16 mm, and 0.5 mm and 2.5 mm for all others.
/// @param dx spacing of the points in m
COMMONUIANALYSIS_API SMotifLimits DefaultMotifLimits(std::size_t points, double dx);

/// Parameters of the motifs of a profile (ISO 12085:1996). A motif lies between two peaks, AR or AW apart;
/// its depths H are the heights of both above the lowest point between them. How a line is divided into
/// motifs says FindMotifs: ends of the profile are no peaks.
///
/// Roughness motifs are those of the primary profile that are no wider than A:
/// - AR, SAR: mean and standard deviation of their widths, m
/// - R, SR: mean and standard deviation of their depths, two each, m. A depth of more than the mean of all
///   plus 1.65 times their standard deviation counts as that.
/// - Rx: largest depth, as it is, m
///
/// The upper envelope line joins the peaks of all motifs of the primary profile, of any width, straightly.
/// Before, a valley that is deeper than that limit below both its peaks is lifted to it, and a peak that is
/// higher than that above the valleys beside it is lowered to it: isolated ones say nothing of the waviness.
/// Waviness motifs are those of the envelope line that are no wider than B:
/// - AW, SAW, W, SW, Wx: likewise, of all depths as they are, m
/// - Wte: highest less lowest point of the envelope line, m
///
/// Standard deviations are those of a sample (n - 1). What there are no motifs for is NaN, as is everything
/// where points are missing.
/// @param primary heights in m without form, see CProfileSplitter::RemoveForm
/// @param dx spacing of the points in m
/// @return the keys p12085_RAr, Rr, Rrx, RSAr, RSr, WAr, Wr, WSAr, WSr, Wte, Wrx, each behind "p12085_"
COMMONUIANALYSIS_API std::vector<SValue> ComputeMotifs(std::span<const double> primary, double dx,
                                                       const SMotifLimits& limits);

/// What ComputeMotifs computes, in its order.
COMMONUIANALYSIS_API std::vector<SQuantity> GetMotifQuantities();

} // namespace CommonUI::Analysis
