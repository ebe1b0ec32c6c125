#pragma once

#include "common/ini/detail/IniEncoding.h"
#include "common/Str.h"

#include <string>
#include <string_view>

/// @file
/// How names and values stand in the lines of an INI file: as they are wherever that can be read back, else
/// in double quotes with the escapes \" \\ \n \r \t and \uXXXX (one UTF-16 code unit).

namespace CommonUI
{

template<class TUnit>
constexpr bool IsBlank(TUnit unit) noexcept
{
    return unit == ' ' || unit == '\t';
}

/// The first position at or after `at` that holds no blank, or the size.
inline std::size_t SkipBlanks(std::string_view text, std::size_t at) noexcept
{
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    return at;
}

template<class TUnit>
std::basic_string_view<TUnit> TrimBlanksRight(std::basic_string_view<TUnit> text) noexcept
{
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

inline std::string_view TrimBlanks(std::string_view text) noexcept
{
    return TrimBlanksRight(text.substr(SkipBlanks(text, 0)));
}

/// The place of the quote that ends what begins with the quote at `open`, or npos.
std::size_t FindClosingQuote(std::string_view text, std::size_t open) noexcept;

/// The text that stands between two quotes. A backslash that begins no escape stands for itself.
std::u16string Unquote(std::string_view inner);

/// The text in quotes, whether it needs them or not.
std::string Quote(std::u16string_view text, EIniEncoding encoding);
/// The stored form of a name in front of an equals sign.
std::string QuoteKey(std::u16string_view key, EIniEncoding encoding);
/// The stored form of a name between square brackets.
std::string QuoteSection(std::u16string_view name, EIniEncoding encoding);
/// The stored form of a value that is one text.
std::string QuoteText(std::u16string_view text, EIniEncoding encoding);
/// The stored form of one text among several with commas between them; never empty.
std::string QuoteElement(std::u16string_view text, EIniEncoding encoding);

} // namespace CommonUI
