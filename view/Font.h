#pragma once

#include "common/Color.h"
#include "common/Rect.h"
#include "common/Str.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace SurfaceView
{

/// A picture of pixels with red, green, blue and alpha, rows from the bottom up as OpenGL has them.
struct SPixels {
    CommonUI::SSize size{};
    std::vector<std::uint8_t> bytes{};
};

/// Turns lines of text into pictures.
class CFont
{
public:
    CFont() = default;
    virtual ~CFont() = default;
    CFont(const CFont&) = delete;
    CFont& operator=(const CFont&) = delete;

    /// The size of a line's picture.
    /// @param height of the font, pixels
    virtual CommonUI::SSize Measure(std::u16string_view text, int height) const = 0;
    /// A line's picture: the colour everywhere, alpha where the glyphs are.
    virtual SPixels Draw(std::u16string_view text, int height, CommonUI::SColor color) const = 0;
};

} // namespace SurfaceView
