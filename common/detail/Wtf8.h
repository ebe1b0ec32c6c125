#pragma once

#include "common/Str.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// @file
/// UTF-8 that may also hold surrogates without a partner, each as the three bytes of its number (known as
/// WTF-8): every UTF-16 text has exactly one such form and comes back from it unchanged.

namespace CommonUI
{

template<class TUnit>
bool IsAscii(std::basic_string_view<TUnit> text) noexcept
{
    constexpr std::uint64_t c_beyond = sizeof(TUnit) == 1 ? 0x8080808080808080 : 0xFF80FF80FF80FF80;
    constexpr std::size_t c_atOnce = sizeof c_beyond / sizeof(TUnit);
    std::uint64_t all = 0;
    for (; text.size() >= c_atOnce; text.remove_prefix(c_atOnce)) {
        std::uint64_t units;
        std::memcpy(&units, text.data(), sizeof units);
        all |= units;
    }
    unsigned rest = 0;
    for (const TUnit unit : text)
        rest |= static_cast<unsigned>(unit);
    return (all & c_beyond) == 0 && rest < 0x80;
}

/// What stands at a position of bytes that are taken for UTF-8.
struct SUtf8Sequence {
    std::size_t length; ///< of an ill-formed sequence, its maximal part that could begin a well-formed one
    bool wellFormed;
};
SUtf8Sequence SequenceAt(std::string_view bytes, std::size_t at) noexcept;

/// Whether the bytes are well-formed UTF-8 (Unicode Standard, table 3-7); surrogates are not.
bool IsUtf8(std::string_view bytes) noexcept;

/// Whether the code unit at `at` and the one behind it are a surrogate pair.
inline bool IsPairAt(std::u16string_view text, std::size_t at) noexcept
{
    return at + 1 < text.size() && (text[at] & 0xFC00) == 0xD800 && (text[at + 1] & 0xFC00) == 0xDC00;
}

inline bool IsSurrogate(char16_t unit) noexcept
{
    return (unit & 0xF800) == 0xD800;
}

void AppendWtf8(std::string& bytes, std::u16string_view text);
std::string ToWtf8(std::u16string_view text);

/// The place of the first surrogate without a partner at or after `from`, or npos.
std::size_t FindSurrogate(std::string_view wtf8, std::size_t from = 0) noexcept;

/// Writes the text of any bytes, in place of the maximal parts of ill-formed sequences U+FFFD.
/// @param to room for as many units as there are bytes
/// @return behind the last unit
char16_t* WriteUtf16(char16_t* to, std::string_view bytes) noexcept;

/// Appends the text of bytes that AppendWtf8 made or that IsUtf8 accepts; of others, some text.
void AppendUtf16(std::u16string& text, std::string_view wtf8);

/// The text of bytes as AppendUtf16 takes them.
CStr FromWtf8(std::string_view wtf8);

} // namespace CommonUI
