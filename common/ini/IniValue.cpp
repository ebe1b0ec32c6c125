#include "common/ini/detail/IniValue.h"

#include "common/detail/Wtf8.h"
#include "common/ini/detail/IniQuotes.h"
#include "export/FromChars.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace CommonUI
{

namespace
{

constexpr std::uint64_t c_plainNan = 0x7FF8000000000000;

// The text without a plus sign in front, which from_chars does not take.
std::string_view WithoutPlus(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    return text;
}

template<class TNumber, class... TBases>
bool ParseNumber(std::string_view text, TNumber& value, TBases... bases)
{
    text = WithoutPlus(text);
    const char* end = text.data() + text.size();
    const auto [stop, error] = FromChars(text.data(), end, value, bases...);
    return error == std::errc() && stop == end;
}

template<class T>
std::string FormatNumber(T value)
{
    char text[32];
    return std::string(text, std::to_chars(std::begin(text), std::end(text), value).ptr);
}

bool EqualsAnyCase(std::string_view text, std::string_view lower)
{
    const auto equals = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), equals);
}

// Calls `take` with each piece between the commas, without blanks; false as soon as it returns false.
template<class FTake>
bool ForEachPiece(std::string_view stored, FTake&& take)
{
    for (std::size_t at = 0;;) {
        const std::size_t comma = stored.find(',', at);
        if (!take(TrimBlanks(stored.substr(at, comma - at))))
            return false;
        if (comma == stored.npos)
            return true;
        at = comma + 1;
    }
}

template<class T, std::size_t Count>
bool ParseNumbers(std::string_view stored, std::array<T, Count>& values)
{
    std::size_t taken = 0;
    const auto take = [&](std::string_view piece) {
        return taken < Count && ParseNumber(piece, values[taken++], 10);
    };
    return ForEachPiece(stored, take) && taken == Count;
}

template<class... TNumbers>
std::string JoinNumbers(TNumbers... values)
{
    std::string stored;
    ((stored += FormatNumber(values) + ","), ...);
    stored.pop_back();
    return stored;
}

// The element that begins at `at`, which moves to the comma behind it or to the end; false when its quotes
// are not closed or something follows them.
bool ParseElement(std::string_view stored, std::size_t& at, CStr& element)
{
    const std::size_t begin = SkipBlanks(stored, at);
    if (begin == stored.size() || stored[begin] != '"') {
        at = std::min(stored.find(',', begin), stored.size());
        element = FromWtf8(TrimBlanksRight(stored.substr(begin, at - begin)));
        return true;
    }
    const std::size_t close = FindClosingQuote(stored, begin);
    if (close == stored.npos)
        return false;
    element = Unquote(stored.substr(begin + 1, close - begin - 1));
    at = SkipBlanks(stored, close + 1);
    return at == stored.size() || stored[at] == ',';
}

} // namespace

bool ParseIniValue(std::string_view stored, bool& value)
{
    const auto isStored = [stored](std::string_view word) { return EqualsAnyCase(stored, word); };
    constexpr std::string_view c_yes[] = {"1", "true", "yes", "on"};
    constexpr std::string_view c_no[] = {"0", "false", "no", "off"};
    value = std::any_of(std::begin(c_yes), std::end(c_yes), isStored);
    return value || std::any_of(std::begin(c_no), std::end(c_no), isStored);
}

bool ParseIniValue(std::string_view stored, int& value)
{
    return ParseNumber(stored, value, 10);
}

bool ParseIniValue(std::string_view stored, unsigned& value)
{
    return ParseNumber(stored, value, 10);
}

bool ParseIniValue(std::string_view stored, double& value)
{
    std::uint64_t bits = 0;
    if (!stored.starts_with("nan(") || !stored.ends_with(')'))
        return ParseNumber(stored, value);
    if (!ParseNumber(stored.substr(4, stored.size() - 5), bits, 16) ||
        !std::isnan(std::bit_cast<double>(bits)))
        return false;
    value = std::bit_cast<double>(bits);
    return true;
}

bool ParseIniValue(std::string_view stored, SColor& value)
{
    std::array<std::uint8_t, 3> parts{};
    if (!ParseNumbers(stored, parts))
        return false;
    value = {parts[0], parts[1], parts[2]};
    return true;
}

bool ParseIniValue(std::string_view stored, SRect& value)
{
    std::array<int, 4> parts{};
    if (!ParseNumbers(stored, parts))
        return false;
    value = {parts[0], parts[1], parts[2], parts[3]};
    return true;
}

bool ParseIniValue(std::string_view stored, SSize& value)
{
    std::array<int, 2> parts{};
    if (!ParseNumbers(stored, parts))
        return false;
    value = {parts[0], parts[1]};
    return true;
}

bool ParseIniValue(std::string_view stored, CStr& value)
{
    const bool quoted = stored.starts_with('"') && FindClosingQuote(stored, 0) == stored.size() - 1;
    value = quoted ? CStr(Unquote(stored.substr(1, stored.size() - 2))) : FromWtf8(stored);
    return true;
}

bool ParseIniValue(std::string_view stored, std::vector<CStr>& value)
{
    value.clear();
    if (stored.empty())
        return true;
    for (std::size_t at = 0;; ++at) {
        if (!ParseElement(stored, at, value.emplace_back()))
            return false;
        if (at == stored.size())
            return true;
    }
}

bool ParseIniValue(std::string_view stored, std::vector<double>& value)
{
    value.clear();
    const auto take = [&value](std::string_view piece) { return ParseIniValue(piece, value.emplace_back()); };
    return stored.empty() || ForEachPiece(stored, take);
}

std::string FormatIniValue(bool value, EIniEncoding)
{
    return value ? "1" : "0";
}

std::string FormatIniValue(int value, EIniEncoding)
{
    return FormatNumber(value);
}

std::string FormatIniValue(unsigned value, EIniEncoding)
{
    return FormatNumber(value);
}

std::string FormatIniValue(double value, EIniEncoding)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if (!std::isnan(value))
        return FormatNumber(value);
    if (bits == c_plainNan)
        return "nan";
    char text[16];
    return std::string("nan(").append(text, std::to_chars(text, std::end(text), bits, 16).ptr) + ")";
}

std::string FormatIniValue(const SColor& value, EIniEncoding)
{
    return JoinNumbers(value.red, value.green, value.blue);
}

std::string FormatIniValue(const SRect& value, EIniEncoding)
{
    return JoinNumbers(value.left, value.top, value.right, value.bottom);
}

std::string FormatIniValue(const SSize& value, EIniEncoding)
{
    return JoinNumbers(value.cx, value.cy);
}

std::string FormatIniValue(const CStr& value, EIniEncoding encoding)
{
    return QuoteText(value, encoding);
}

std::string FormatIniValue(const std::vector<CStr>& value, EIniEncoding encoding)
{
    std::string stored;
    for (const CStr& text : value)
        stored.append(stored.empty() ? "" : ",").append(QuoteElement(text, encoding));
    return stored;
}

std::string FormatIniValue(const std::vector<double>& value, EIniEncoding encoding)
{
    std::string stored;
    for (const double number : value)
        stored.append(stored.empty() ? "" : ",").append(FormatIniValue(number, encoding));
    return stored;
}

} // namespace CommonUI
