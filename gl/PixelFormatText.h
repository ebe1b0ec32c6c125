#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "../platform/PixelFormat.h"

namespace CommonUI
{

/// A pixel format for the diagnostics: one line for each field, with its name and value.
/// @param separator what stands between two lines
COMMONUI_API CStr PixelFormatDescriptorString(const PIXELFORMATDESCRIPTOR& pfd, const CStr& separator);

/// Attributes of a pixel format or off-screen buffer, as WGL_ARB_pixel_format and WGL_ARB_pbuffer define
/// them, for the diagnostics: one line for each, with its name and value. Attributes of other numbers are
/// called INVALID.
/// @param attributes, values `count` numbers each
/// @param separator what stands between two lines
COMMONUI_API CStr ExtPixelFormatDescriptorString(unsigned int count, const int* attributes, const int* values,
                                                 const CStr& separator);

} // namespace CommonUI
