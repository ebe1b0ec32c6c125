#pragma once

#include "../../common/Color.h"
#include "../../export/Export.h"

/// @file
/// Contrast by WCAG 2: how well one colour stands out from another.

namespace CommonUI
{

/// What a text needs from its ground, success criterion 1.4.3.
constexpr double c_textContrast = 4.5;
/// What lines and marks need that carry meaning, success criterion 1.4.11.
constexpr double c_markContrast = 3.0;

/// The relative luminance, from 0 for black to 1 for white.
COMMONUI_API double GetLuminance(const SColor& color);
/// The contrast ratio, from 1 for equal colours to 21 for black and white, whichever comes first.
COMMONUI_API double GetContrast(const SColor& one, const SColor& other);

/// From 0 for `from` to 1 for `to`, in equal steps of the display space.
COMMONUI_API SColor MixColors(const SColor& from, const SColor& to, double part);
/// Black or white, whichever stands out more.
COMMONUI_API SColor GetTextColorOn(const SColor& ground);
/// The colour itself where it stands out enough from its ground; otherwise as little of black or white mixed
/// in as makes it stand out, or all of it where nothing does.
COMMONUI_API SColor MakeReadable(const SColor& color, const SColor& ground, double contrast = c_textContrast);

} // namespace CommonUI
