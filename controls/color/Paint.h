#pragma once

#include "../../common/Color.h"
#include "../../common/Str.h"
#include "../../export/Export.h"

#include <cstdint>

namespace CommonUI
{

/// A colour that lets its ground show through, or does not.
struct SPaint {
    SColor color{};             ///< of what covers
    std::uint8_t opacity = 255; ///< from 0, which is not seen, to 255, which covers its ground

    friend bool operator==(const SPaint&, const SPaint&) = default;
};

/// "#rrggbb", or "#rrggbbaa" where the ground shows through.
COMMONUI_API CStr FormatPaint(const SPaint& paint);

/// Reads what FormatPaint writes, "#rgb", the same without "#", three decimal numbers such as "255, 128, 0",
/// and the key or the display name of a named colour, in any case of letters. Blanks at the ends are ignored.
/// @return false, and `paint` is left alone, when the text is no colour
COMMONUI_API bool ParsePaint(std::u16string_view text, SPaint& paint);

/// What people call it: the display name of a named colour, otherwise its text, and how much it covers:
/// "Red", "#1a2b3c, 50 %".
COMMONUI_API CStr DescribePaint(const SPaint& paint);

/// How much a paint covers, in percent.
COMMONUI_API int GetOpacityPercent(const SPaint& paint) noexcept;
/// @param percent beyond 0 to 100 is clamped
COMMONUI_API SPaint WithOpacityPercent(const SPaint& paint, int percent) noexcept;

} // namespace CommonUI
