#include "common/ini/detail/IniEncoding.h"

#include "common/detail/Wtf8.h"

#include <algorithm>
#include <iterator>

namespace CommonUI
{

namespace
{

constexpr std::string_view c_utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view c_utf16Mark = "\xFF\xFE";
constexpr std::string_view c_utf16BigMark = "\xFE\xFF";

// The characters of the bytes 0x80 to 0x9F; the others stand for the character of the same number.
constexpr char16_t c_western[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::string_view MarkOf(std::string_view bytes)
{
    for (const std::string_view mark : {c_utf16Mark, c_utf16BigMark, c_utf8Mark}) {
        if (bytes.starts_with(mark))
            return mark;
    }
    return {};
}

EIniEncoding EncodingOf(std::string_view bytes)
{
    if (bytes.starts_with(c_utf16Mark))
        return EIniEncoding::Utf16;
    if (bytes.starts_with(c_utf16BigMark))
        return EIniEncoding::Utf16Big;
    return IsUtf8(bytes) ? EIniEncoding::Utf8 : EIniEncoding::Western;
}

bool IsUtf16(EIniEncoding encoding)
{
    return encoding == EIniEncoding::Utf16 || encoding == EIniEncoding::Utf16Big;
}

std::string FromUtf16Bytes(std::string_view bytes, bool isBig)
{
    std::u16string units(bytes.size() / 2, 0);
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i + isBig]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + !isBig]);
        units[i] = static_cast<char16_t>(low | (high << 8));
    }
    return ToWtf8(units);
}

std::string ToUtf16Bytes(std::string_view text, bool isBig)
{
    std::u16string units;
    units.reserve(text.size());
    AppendUtf16(units, text);
    std::string bytes;
    bytes.reserve(2 * units.size());
    for (const char16_t unit : units) {
        const auto low = static_cast<char>(unit & 0xFF);
        const auto high = static_cast<char>(unit >> 8);
        bytes += isBig ? high : low;
        bytes += isBig ? low : high;
    }
    return bytes;
}

std::string FromWestern(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const char16_t unit = byte >= 0x80 && byte < 0xA0 ? c_western[byte - 0x80] : byte;
        AppendWtf8(text, {&unit, 1});
    }
    return text;
}

std::string ToWestern(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    AppendUtf16(units, text);
    std::string bytes;
    bytes.reserve(units.size());
    for (const char16_t unit : units) {
        const auto* found = std::find(std::begin(c_western), std::end(c_western), unit);
        bytes += static_cast<char>(found == std::end(c_western) ? unit : 0x80 + (found - c_western));
    }
    return bytes;
}

} // namespace

SIniContent DecodeIni(std::string bytes)
{
    SIniContent content;
    content.encoding = EncodingOf(bytes);
    content.mark = MarkOf(bytes);
    std::string_view body = std::string_view(bytes).substr(content.mark.size());
    if (IsUtf16(content.encoding)) {
        content.tail = body.substr(body.size() / 2 * 2);
        content.text = FromUtf16Bytes(body, content.encoding == EIniEncoding::Utf16Big);
    } else if (content.encoding == EIniEncoding::Western) {
        content.text = FromWestern(body);
    } else {
        content.text = std::move(bytes.erase(0, content.mark.size()));
    }
    return content;
}

bool IsIniText(std::string_view bytes)
{
    if (!MarkOf(bytes).empty())
        return true;
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' &&
               std::string_view("\t\n\v\f\r\x1A").find(c) == std::string_view::npos;
    };
    if (std::find(bytes.begin(), bytes.end(), '\0') != bytes.end())
        return false;
    return IsUtf8(bytes) || std::none_of(bytes.begin(), bytes.end(), isControl);
}

std::string EncodeIni(EIniEncoding encoding, std::string_view mark, std::string text, std::string_view tail)
{
    if (IsUtf16(encoding)) {
        const bool isBig = encoding == EIniEncoding::Utf16Big;
        return std::string(isBig ? c_utf16BigMark : c_utf16Mark)
            .append(ToUtf16Bytes(text, isBig))
            .append(tail);
    }
    if (encoding == EIniEncoding::Western) {
        std::string bytes = std::string(mark).append(ToWestern(text));
        if (IsAscii(std::string_view(text)) ||
            (EncodingOf(bytes) == EIniEncoding::Western && MarkOf(bytes) == mark))
            return bytes;
        mark = c_utf8Mark;
    }
    // A text that begins with the mark's own character needs a mark in front, or it would be taken for it.
    if (mark.empty() && MarkOf(text) == c_utf8Mark)
        mark = c_utf8Mark;
    text.insert(0, mark);
    return text;
}

bool IsWestern(char16_t unit) noexcept
{
    return unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF) ||
           std::find(std::begin(c_western), std::end(c_western), unit) != std::end(c_western);
}

EIniEncoding WideEnough(EIniEncoding wanted, std::string_view text)
{
    if (IsAscii(std::string_view(text)) || IsUtf16(wanted))
        return wanted;
    if (FindSurrogate(text) != text.npos)
        return EIniEncoding::Utf16;
    std::u16string units;
    AppendUtf16(units, text);
    const bool fits = wanted != EIniEncoding::Western || std::all_of(units.begin(), units.end(), IsWestern);
    return fits ? wanted : EIniEncoding::Utf8;
}

} // namespace CommonUI
