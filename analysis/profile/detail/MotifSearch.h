#pragma once

#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// A point of a profile or of an envelope line, in m.
struct SLinePoint {
    double at;
    double height;
};

/// Motifs beside one another: each lies between two peaks.
struct SMotifs {
    std::vector<SLinePoint> peaks{};
    std::vector<double>
        valleys{}; ///< lowest height between a peak and the next: one fewer, none without peaks

    double GetWidth(std::size_t motif) const { return peaks[motif + 1].at - peaks[motif].at; }
};

/// Divides a line at its peaks and combines the motifs (ISO 12085). In n points it takes n log n steps.
///
/// A peak or valley counts if the line falls or rises to both sides of it by 5 % of the mean height of
/// sections of half the limit. Of a plateau the middle is the peak.
///
/// Two neighbours, with the peaks a, b and c, become one motif where all of this holds:
/// - b is not higher than both a and c
/// - the whole is no wider than the limit
/// - T of the whole is not less than T of either, T being the height of the lower peak above the valley
/// - b stands less than 60 % of T of the whole above one of the two valleys
///
/// Of all that can be combined, that whose b stands least above one of its valleys is combined first, so that
/// the result does not depend on the direction in which the line is read.
/// @param limit above 0
/// @param noise heights that differ by no more are equal
/// @return motifs of any width
SMotifs FindMotifs(std::span<const SLinePoint> line, double limit, double noise);

} // namespace CommonUI::Analysis
