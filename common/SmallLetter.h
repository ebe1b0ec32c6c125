#pragma once

#include "Str.h"

#include <string_view>

namespace CommonUI
{

/// The small letter of a capital one, for the alphabets that are likely in names of files: Latin of western
/// Europe, Greek and Cyrillic. The C locale plays no part.
constexpr char16_t ToSmall(char16_t unit) noexcept
{
    const auto isIn = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
    const bool isLatin = isIn(u'A', u'Z') || (isIn(0xC0, 0xDE) && unit != 0xD7);
    if (isLatin || isIn(0x391, 0x3A9) || isIn(0x410, 0x42F))
        return static_cast<char16_t>(unit + 0x20);
    return isIn(0x400, 0x40F) ? static_cast<char16_t>(unit + 0x50) : unit;
}

/// The text in small letters: texts that differ in capitals alone become one. The length stays.
inline CStr ToSmall(std::u16string_view text)
{
    CStr lower;
    char16_t* to = lower.SetLength(text.size());
    for (const char16_t unit : text)
        *to++ = ToSmall(unit);
    return lower;
}

} // namespace CommonUI
