#pragma once

#include "Str.h"

#include <string_view>

namespace CommonUI
{

/// The small letter of a capital one: those of Latin, Greek and Cyrillic that have a small form in the basic
/// plane. The C locale plays no part.
constexpr char16_t ToSmall(char16_t unit) noexcept
{
    const auto isIn = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
    if (unit < 0x80)
        return isIn(u'A', u'Z') ? static_cast<char16_t>(unit + 0x20) : unit;
    const bool isLatin = isIn(0xC0, 0xDE) && unit != 0xD7;
    const bool isGreek = isIn(0x391, 0x3AB) && unit != 0x3A2;
    if (isLatin || isGreek || isIn(0x410, 0x42F))
        return static_cast<char16_t>(unit + 0x20);
    if (isIn(0x400, 0x40F))
        return static_cast<char16_t>(unit + 0x50);
    if (unit == 0x178)
        return 0xFF;
    // In the extended rows capital and small letters take turns.
    const bool isOddCapital = isIn(0x139, 0x148) || isIn(0x179, 0x17E);
    const bool isAlone = unit == 0x130 || unit == 0x131 || unit == 0x138 || unit == 0x149;
    const bool isPaired =
        (isIn(0x100, 0x177) && !isAlone) || isOddCapital || isIn(0x460, 0x481) || isIn(0x48A, 0x4BF);
    return isPaired && (unit % 2 != 0) == isOddCapital ? static_cast<char16_t>(unit + 1) : unit;
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
