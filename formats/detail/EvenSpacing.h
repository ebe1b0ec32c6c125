#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>

namespace CommonUI::Formats
{

/// How positions stand on an even grid.
struct SEvenSpacing {
    double spacing; ///< from the first to the last one; below 0 where they fall
    /// The index of one that is not where the grid has it.
    std::optional<std::size_t> uneven;
};

/// A position may lie a tenth of the spacing beside its place, for the digits that a text has left out.
/// @param repeat how many positions stand at each place of the grid, one after the other: 1 for those along a
///     line, the points of a line for the lines
/// @param count the places, 2 and more, after which they start anew
/// @param isMissing whether a position does not count
SEvenSpacing FindSpacing(std::span<const double> positions, std::size_t repeat, std::size_t count,
                         const std::function<bool(std::size_t)>& isMissing);

} // namespace CommonUI::Formats
