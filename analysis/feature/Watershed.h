#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstdint>
#include <vector>

namespace CommonUI::Analysis
{

/// The two ways to divide a surface (ISO 25178-2): into hills, from whose points every steepest way up leads
/// to one peak, and into dales, from whose points every steepest way down leads to one pit.
enum class EFeature { Hill, Dale };

/// The peak of a hill or the pit of a dale: one point, or several of the same height side by side.
struct SExtremum {
    std::uint32_t point = 0; ///< index; of several points the one nearest to their middle
    /// Whether such a point is at the border of the surface or beside a missing point, so that nobody knows
    /// whether the surface goes on beyond it.
    bool isAtEdge = false;
};

/// Which hill, or which dale, each point of a surface belongs to.
struct SFeatureMap {
    EFeature kind = EFeature::Hill; ///< whether these are hills or dales
    std::size_t points = 0;         ///< of each line, as those of the surface
    std::size_t lines = 0;          ///< as those of the surface
    /// Line after line, the number of the hill or dale, from 1, or 0 for a missing point.
    std::vector<std::uint32_t> labels{};
    std::vector<SExtremum> extrema{}; ///< of each hill or dale, that of number 1 first

    std::size_t GetCount() const { return extrema.size(); } ///< of the hills or dales
};

/// Divides a surface into its hills or its dales, however small; CChangeTree tells which of them matter.
///
/// A point has eight neighbours, and its way leads to the one to which the slope is greatest, spacings
/// included. On a plateau it leads to the nearest way off it. Missing points are an edge: no way leads over
/// them.
///
/// Takes time proportional to the number of points, on several threads.
/// @throws ETooManyPoints for 2³² points or more
COMMONUIANALYSIS_API SFeatureMap FindWatersheds(const SSurface& surface, EFeature kind);

} // namespace CommonUI::Analysis
