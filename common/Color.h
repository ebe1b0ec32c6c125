#pragma once

#include <cstdint>

namespace CommonUI
{

/// An opaque colour of the sRGB display space, 0 to 255 for each primary.
struct SColor {
    std::uint8_t red = 0;   ///< 0 for none
    std::uint8_t green = 0; ///< 0 for none
    std::uint8_t blue = 0;  ///< 0 for none

    friend bool operator==(const SColor&, const SColor&) = default;
};

} // namespace CommonUI
