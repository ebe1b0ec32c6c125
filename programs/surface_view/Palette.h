#pragma once

#include "programs/surface_view/Picture.h"

#include <array>
#include <cstdint>
#include <vector>

namespace SurfaceView
{

/// A picture by the numbers of few colours.
struct SIndexed {
    std::vector<std::array<std::uint8_t, 3>> colors{}; ///< red, green and blue; 1 to 256
    std::vector<std::uint8_t> indices{};               ///< of each pixel, rows from the top down
};

/// Finds the colours that come nearest to those of a picture: the colours are divided at the mean of those
/// that deviate most, until there are enough of them. A colour of many pixels is kept as it is.
SIndexed ReduceColors(const SPicture& picture);

} // namespace SurfaceView
