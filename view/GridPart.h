#pragma once

#include <cstddef>

namespace SurfaceView
{

/// Some of the points of a grid.
struct SGridPart {
    std::size_t column = 0; ///< the first
    std::size_t line = 0;
    std::size_t points = 0; ///< of each line
    std::size_t lines = 0;

    bool IsEmpty() const noexcept { return points == 0 || lines == 0; }
    /// Whether all points of another part belong to it.
    bool Holds(const SGridPart& other) const noexcept;

    friend bool operator==(const SGridPart&, const SGridPart&) = default;
};

/// A part with more points on each side, as far as there are.
/// @param share of its points
/// @param all the grid
SGridPart Widen(const SGridPart& part, double share, const SGridPart& all);

/// The same part of a surface in another grid over it, the first and the last points of which are where
/// those of the first one are; with what lies between points.
SGridPart MoveToGrid(const SGridPart& part, const SGridPart& from, const SGridPart& to);

/// Whether what was made for a part still does for what is seen: it holds that, and is not much larger than
/// what would be made now.
bool Serves(const SGridPart& part, const SGridPart& seen, double share, const SGridPart& all);

} // namespace SurfaceView
