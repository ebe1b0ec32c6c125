#pragma once

#include "platform/PixelFormat.h"
#include "programs/offscreen/OffscreenContext.h"

#include <vector>

namespace GlReport
{

/// The pixels of a context as the record by which the library describes them. The shifts are those of a pixel
/// that is read as red, green, blue and alpha.
CommonUI::PIXELFORMATDESCRIPTOR MakePixelFormat(const Offscreen::SPixelBits& bits);

/// Attributes of WGL_ARB_pixel_format and WGL_ARB_pbuffer with their values, one for each.
struct SPixelAttributes {
    std::vector<int> attributes{};
    std::vector<int> values{};
};

/// The same pixels by attributes.
SPixelAttributes MakePixelAttributes(const Offscreen::SPixelBits& bits);

} // namespace GlReport
