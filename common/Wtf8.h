#pragma once

#include "Export.h"
#include "Str.h"

#include <string>
#include <string_view>

/// @file
/// UTF-8 that may also hold surrogates without a partner, each as the three bytes of its number (known as
/// WTF-8): every UTF-16 text has exactly one such form and comes back from it unchanged.

namespace CommonUI
{

COMMONDLL_API bool IsAscii(std::string_view bytes) noexcept;

/// Whether the bytes are well-formed UTF-8 (Unicode Standard, table 3-7); surrogates are not.
COMMONDLL_API bool IsUtf8(std::string_view bytes) noexcept;

/// Whether the code unit at `at` and the one behind it are a surrogate pair.
inline bool IsPairAt(std::u16string_view text, std::size_t at) noexcept
{
    return at + 1 < text.size() && (text[at] & 0xFC00) == 0xD800 && (text[at + 1] & 0xFC00) == 0xDC00;
}

inline bool IsSurrogate(char16_t unit) noexcept
{
    return (unit & 0xF800) == 0xD800;
}

COMMONDLL_API void AppendWtf8(std::string& bytes, std::u16string_view text);

/// Appends the text of bytes that AppendWtf8 made or that IsUtf8 accepts; of others, some text.
COMMONDLL_API void AppendUtf16(std::u16string& text, std::string_view wtf8);

/// The text of bytes as AppendUtf16 takes them.
COMMONDLL_API CStr FromWtf8(std::string_view wtf8);

} // namespace CommonUI
