#include "platform/network/WebAddress.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr std::size_t c_longest = 2000;
constexpr std::size_t c_npos = std::u16string_view::npos;
constexpr std::u16string_view c_schemes[] = {u"https://", u"http://"};
// End what stands before them.
constexpr std::u16string_view c_pathStarts = u"/?#";

constexpr bool IsLetter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

constexpr bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

constexpr char16_t ToLower(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

bool StartsWithScheme(std::u16string_view text, std::u16string_view scheme)
{
    return text.size() >= scheme.size() && std::equal(scheme.begin(), scheme.end(), text.begin(),
                                                      [](char16_t a, char16_t b) { return a == ToLower(b); });
}

// How long "https://" is in a text; 0 where it begins otherwise.
std::size_t SchemeLength(std::u16string_view text)
{
    for (const std::u16string_view scheme : c_schemes)
        if (StartsWithScheme(text, scheme))
            return scheme.size();
    return 0;
}

std::u16string_view ServerOf(std::u16string_view address)
{
    const std::u16string_view rest = address.substr(SchemeLength(address));
    return rest.substr(0, rest.find_first_of(c_pathStarts));
}

bool IsServerUnit(char16_t unit)
{
    return IsLetter(unit) || IsDigit(unit) || unit > 0x9F ||
           std::u16string_view(u".-_[]:").find(unit) != c_npos;
}

bool IsServer(std::u16string_view server)
{
    return !server.empty() && server[0] != u':' && std::all_of(server.begin(), server.end(), IsServerUnit);
}

// None that would end an attribute, hide what stands behind it, or be read in different ways.
bool IsAddressUnit(char16_t unit)
{
    const bool isControl = unit <= u' ' || (unit >= 0x7F && unit <= 0x9F);
    const bool changesDirection = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    return !isControl && !changesDirection && std::u16string_view(u"\"'<>\\`{}|^").find(unit) == c_npos;
}

// Browsers leave out line ends and tabs anywhere, and blanks at the ends.
CStr WithoutBlanks(std::u16string_view reference)
{
    const CStr trimmed = CStr(reference).Trim();
    CStr clean;
    for (const char16_t unit : trimmed)
        if (unit == u' ')
            clean += u"%20";
        else if (unit != u'\t' && unit != u'\r' && unit != u'\n')
            clean += unit;
    return clean;
}

// Whether it begins as "mailto:" does.
bool HasScheme(std::u16string_view reference)
{
    const std::size_t end = reference.find_first_of(u":/?#");
    return end != c_npos && reference[end] == u':';
}

// The path without "." and ".." in it; it begins with "/".
CStr WithoutDots(std::u16string_view path)
{
    std::u16string result;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t next = std::min(path.find(u'/', at + 1), path.size());
        const std::u16string_view part = path.substr(at, next - at);
        const bool isLast = next == path.size();
        if (part == u"/..")
            result.resize(result.empty() ? 0 : result.rfind(u'/'));
        if (part != u"/." && part != u"/..")
            result += part;
        else if (isLast)
            result += u'/';
        at = next;
    }
    return result;
}

CStr Merge(std::u16string_view reference, std::u16string_view page)
{
    const std::size_t pathStart = SchemeLength(page) + ServerOf(page).size();
    const std::u16string_view origin = page.substr(0, pathStart);
    const std::u16string_view path = page.substr(pathStart, page.find_first_of(u"?#") - pathStart);
    if (reference.starts_with(u"//"))
        return page.substr(0, page.find(u'/')) + CStr(reference);
    if (reference.starts_with(u"#"))
        return page.substr(0, page.find(u'#')) + CStr(reference);
    if (reference.starts_with(u"?"))
        return origin + CStr(path) + reference;
    const std::size_t end = std::min(reference.find_first_of(u"?#"), reference.size());
    const bool isWhole = reference.starts_with(u"/");
    const CStr folder = path.empty() ? CStr(u"/") : CStr(path.substr(0, path.rfind(u'/') + 1));
    const CStr whole = (isWhole ? CStr() : folder) + reference.substr(0, end);
    return origin + WithoutDots(whole) + reference.substr(end);
}

} // namespace

bool IsWebAddress(std::u16string_view text) noexcept
{
    return text.size() <= c_longest && SchemeLength(text) != 0 &&
           std::all_of(text.begin(), text.end(), IsAddressUnit) && IsServer(ServerOf(text));
}

CStr ResolveWebAddress(std::u16string_view reference, std::u16string_view page)
{
    if (reference.size() > c_longest)
        return {};
    const CStr clean = WithoutBlanks(reference);
    const bool isWhole = HasScheme(clean);
    if (clean.IsEmpty() || (!isWhole && !IsWebAddress(page)))
        return {};
    const CStr address = isWhole ? clean : Merge(clean, page);
    return IsWebAddress(address) ? address : CStr();
}

CStr GetWebServer(std::u16string_view address)
{
    return ServerOf(address);
}

} // namespace CommonUI
