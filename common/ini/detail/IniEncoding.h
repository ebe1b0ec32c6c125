#pragma once

#include <string>
#include <string_view>

namespace CommonUI
{

/// How the characters of an INI file are stored.
enum class EIniEncoding {
    Utf8,
    Utf16,    ///< little endian
    Utf16Big, ///< big endian
    Western   ///< Windows-1252; its five unused bytes stand for the control characters of the same number
};

/// The bytes of an INI file taken apart so that putting them together again gives the same bytes.
struct SIniContent {
    EIniEncoding encoding = EIniEncoding::Utf8;
    std::string mark; ///< the byte order mark, if there is one
    std::string text; ///< what stands between mark and tail, as WTF-8 whatever the encoding
    std::string tail; ///< the odd byte behind the last code unit of a UTF-16 file
};

/// A file is UTF-16 when it begins with FF FE or FE FF, else UTF-8 when it is well-formed, else Western.
SIniContent DecodeIni(std::string bytes);

/// Whether the bytes of a file can be meant as text: with a mark always; without, they have no zero, and no
/// other control characters but those of layout unless they are UTF-8.
bool IsIniText(std::string_view bytes);

/// The bytes of the file. When edits left a Western file nothing by which a reader could tell it from another
/// encoding, it becomes UTF-8 with a mark, so that its text stays what it is.
std::string EncodeIni(EIniEncoding encoding, std::string_view mark, std::string text, std::string_view tail);

/// Whether Windows-1252 has the character.
bool IsWestern(char16_t unit) noexcept;

/// The first encoding, beginning with `wanted`, that holds every character of the WTF-8 text: Western gives
/// way to UTF-8, and only UTF-16, of either order, holds a surrogate without its partner.
EIniEncoding WideEnough(EIniEncoding wanted, std::string_view text);

} // namespace CommonUI
