#pragma once

#include "../../export/Export.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Measurement
{

/// A point of a long profile.
struct SSample {
    std::size_t index = 0; ///< of the point in the profile
    double height = 0;     ///< NaN for a gap
};

/// The points of a profile that make its picture: all of a short one, of a long one the lowest and the
/// highest of each column, so that no spike is lost. A column without a valid point is a gap.
/// @param columns of the picture, at least 1
/// @return at most twice as many points as columns
COMMONUIMEASUREMENT_API std::vector<SSample> ThinOut(std::span<const double> heights, std::size_t columns);

} // namespace CommonUI::Measurement
