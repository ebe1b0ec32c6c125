#pragma once

#include "common/Color.h"
#include "common/Rect.h"
#include "common/Str.h"

#include <cstdint>
#include <memory>
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
    /// Loads the font that the program was built for.
    /// @throws std::runtime_error when it is not there
    CFont();
    ~CFont();
    CFont(const CFont&) = delete;
    CFont& operator=(const CFont&) = delete;

    /// The size of a line's picture.
    /// @param height of the font, pixels
    CommonUI::SSize Measure(std::u16string_view text, int height) const;
    /// A line's picture: the colour everywhere, alpha where the glyphs are.
    SPixels Draw(std::u16string_view text, int height, CommonUI::SColor color) const;

private:
    struct SFace;

    std::unique_ptr<SFace> m_face;
};

} // namespace SurfaceView
