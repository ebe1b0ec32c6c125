#include "common/ini/detail/IniQuotes.h"

#include "common/detail/Wtf8.h"

#include <algorithm>
#include <optional>

namespace CommonUI
{

namespace
{

// How many code units the character at `at` has when it may stand in the file as it is; 0 when not. Control
// characters and what else breaks lines may not, lest a line ends or an editor drops them, nor may a
// surrogate without its partner, which no reader would take, nor U+FEFF, which would be a byte order mark at
// the start of a file.
std::size_t PlainLength(std::u16string_view text, std::size_t at, EIniEncoding encoding)
{
    const char16_t unit = text[at];
    const bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
    if (isControl || unit == 0x2028 || unit == 0x2029 || unit == 0xFEFF)
        return 0;
    if (encoding == EIniEncoding::Western)
        return IsWestern(unit) ? 1 : 0;
    if (IsSurrogate(unit))
        return IsPairAt(text, at) ? 2 : 0;
    return 1;
}

bool IsPlain(std::u16string_view text, EIniEncoding encoding)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = text[at] == '\t' ? 1 : PlainLength(text, at, encoding);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

bool HasBlankEnd(std::u16string_view text)
{
    return !text.empty() && (IsBlank(text.front()) || IsBlank(text.back()));
}

void AppendEscape(std::string& stored, char16_t unit)
{
    switch (unit) {
    case '"':
        stored += "\\\"";
        return;
    case '\\':
        stored += "\\\\";
        return;
    case '\n':
        stored += "\\n";
        return;
    case '\r':
        stored += "\\r";
        return;
    case '\t':
        stored += "\\t";
        return;
    default:
        stored += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4)
            stored += "0123456789ABCDEF"[(unit >> shift) & 0xF];
    }
}

std::string QuotedUnless(bool plain, std::u16string_view text, EIniEncoding encoding)
{
    if (!plain || !IsPlain(text, encoding))
        return Quote(text, encoding);
    std::string stored;
    stored.reserve(text.size());
    AppendWtf8(stored, text);
    return stored;
}

std::optional<char16_t> ParseHex4(std::string_view digits)
{
    if (digits.size() != 4)
        return {};
    unsigned value = 0;
    for (const char c : digits) {
        const std::size_t digit =
            std::string_view("0123456789abcdef").find(static_cast<char>(c | ('A' ^ 'a')));
        if (digit == std::string_view::npos)
            return {};
        value = value * 16 + static_cast<unsigned>(digit);
    }
    return static_cast<char16_t>(value);
}

// Appends what the backslash at `at` and what follows stand for, and returns where they end.
std::size_t AppendUnescaped(std::u16string& text, std::string_view inner, std::size_t at)
{
    constexpr std::string_view c_names = "\"\\nrt";
    const char name = at + 1 < inner.size() ? inner[at + 1] : '\0';
    if (const std::size_t found = c_names.find(name); found != c_names.npos) {
        text += u"\"\\\n\r\t"[found];
        return at + 2;
    }
    if (name == 'u') {
        if (const auto unit = ParseHex4(inner.substr(at + 2, 4))) {
            text += *unit;
            return at + 6;
        }
    }
    text += u'\\';
    return at + 1;
}

} // namespace

std::size_t FindClosingQuote(std::string_view text, std::size_t open) noexcept
{
    for (std::size_t at = open + 1; at < text.size(); ++at) {
        if (text[at] == '"')
            return at;
        if (text[at] == '\\')
            ++at;
    }
    return std::string_view::npos;
}

std::u16string Unquote(std::string_view inner)
{
    std::u16string text;
    for (std::size_t at = 0; at < inner.size();) {
        const std::size_t escape = std::min(inner.find('\\', at), inner.size());
        AppendUtf16(text, inner.substr(at, escape - at));
        at = escape < inner.size() ? AppendUnescaped(text, inner, escape) : escape;
    }
    return text;
}

std::string Quote(std::u16string_view text, EIniEncoding encoding)
{
    std::string stored = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const bool special = text[at] == '"' || text[at] == '\\';
        const std::size_t length = special ? 0 : PlainLength(text, at, encoding);
        if (length == 0)
            AppendEscape(stored, text[at++]);
        else
            AppendWtf8(stored, text.substr(at, length));
        at += length;
    }
    return stored += '"';
}

std::string QuoteKey(std::u16string_view key, EIniEncoding encoding)
{
    const bool special = !key.empty() && std::u16string_view(u" \t\"[;#").find(key.front()) != key.npos;
    return QuotedUnless(!special && key.find(u'=') == key.npos, key, encoding);
}

std::string QuoteSection(std::u16string_view name, EIniEncoding encoding)
{
    const bool plain = !name.starts_with(u'"') && name.find(u']') == name.npos;
    return QuotedUnless(plain, name, encoding);
}

std::string QuoteText(std::u16string_view text, EIniEncoding encoding)
{
    return QuotedUnless(!text.starts_with(u'"') && !HasBlankEnd(text), text, encoding);
}

std::string QuoteElement(std::u16string_view text, EIniEncoding encoding)
{
    const bool special =
        text.empty() || text.starts_with(u'"') || HasBlankEnd(text) || text.find(u',') != text.npos;
    return QuotedUnless(!special, text, encoding);
}

} // namespace CommonUI
