#pragma once

#include "view/Font.h"

namespace SurfaceView
{

/// A font whose letters are filled boxes of one width.
class CPlainFont : public CFont
{
public:
    CommonUI::SSize Measure(std::u16string_view text, int height) const override
    {
        return {.cx = static_cast<int>(text.size()) * height / 2, .cy = height * 6 / 5};
    }
    SPixels Draw(std::u16string_view text, int height, CommonUI::SColor color) const override
    {
        SPixels pixels{.size = Measure(text, height)};
        for (int i = 0; i < pixels.size.cx * pixels.size.cy; ++i)
            pixels.bytes.insert(pixels.bytes.end(), {color.red, color.green, color.blue, 255});
        return pixels;
    }
};

} // namespace SurfaceView
