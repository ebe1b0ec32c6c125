#pragma once

#include "../../export/Export.h"
#include "../filter/GaussianFilter.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// The profiles of ISO 4287:1997, heights in m, missing points NaN.
struct SProfiles {
    std::vector<double> primary;   ///< without the nominal form: here the least-squares line
    std::vector<double> roughness; ///< primary profile less waviness; all NaN without a usable cut-off
    std::vector<double> waviness;  ///< mean line of the primary profile; all NaN without a usable cut-off
};

/// The cut-off λc that leaves five sampling lengths: a fifth of the profile, in m.
/// @param dx spacing of the points in m
COMMONUIANALYSIS_API double DefaultCutoff(std::size_t points, double dx);

/// What the peaks and valleys of profile elements are at least wide, in point spacings: 1 % of the cut-off,
/// of the default one where there is none that is usable. It holds for roughness, waviness, primary and
/// unfiltered profiles alike, so that a long profile does not lose its narrow elements.
/// @param points of the profile
/// @param dx spacing of the points in m
/// @param cutoff in m, see CProfileSplitter
COMMONUIANALYSIS_API double LeastWidth(std::size_t points, double dx, double cutoff);

/// Splits profiles of the same length. No λs or λf filter is applied.
///
/// No part of the profile is given up for the run-in of the filter, whose weights at the ends are those of
/// the points that there are (see CGaussianFilter): the evaluation length is the whole profile. Const
/// functions may run in several threads at once.
class COMMONUIANALYSIS_API CProfileSplitter
{
public:
    /// @param points of each profile
    /// @param dx spacing of the points in m, greater than 0
    /// @param cutoff λc in m. It is usable if it is greater than 2 dx and not longer than the profile.
    CProfileSplitter(std::size_t points, double dx, double cutoff);

    /// @param heights as many as the points, missing points NaN
    SProfiles Split(std::span<const double> heights) const;

    /// The roughness profile of ISO 13565-1, for surfaces with deep valleys: in a first step what lies below
    /// the mean line is replaced by it, and the mean line of what that leaves is subtracted from the primary
    /// profile. So a valley that is narrow beside the cut-off hardly lifts the plateaus beside it. All NaN
    /// without a usable cut-off.
    /// @param primary as of Split
    std::vector<double> SplitFilled(std::span<const double> primary) const;

    /// The primary profile alone, which takes no filter.
    static std::vector<double> RemoveForm(std::span<const double> heights);

    /// The sampling lengths of the roughness profile: as many whole cut-offs as the profile has, in its
    /// middle. Without a usable cut-off it is the whole profile.
    std::vector<std::span<const double>> GetSamplingLengths(std::span<const double> profile) const;

    double GetSpacing() const { return m_dx; } ///< of the points, m
    /// See LeastWidth.
    double GetLeastWidth() const { return m_leastWidth; }
    /// In point spacings; none where it is not usable.
    std::optional<double> GetCutoff() const { return m_filter ? std::optional(m_cutoff) : std::nullopt; }

private:
    double m_dx;
    double m_leastWidth;
    double m_cutoff; // in point spacings
    std::optional<CGaussianFilter> m_filter{};
};

} // namespace CommonUI::Analysis
