#include "common/detail/DecimalDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <iterator>
#include <optional>

namespace CommonUI
{

namespace
{

template<std::uint64_t Base, std::size_t Count>
constexpr std::array<std::uint64_t, Count> Powers()
{
    std::array<std::uint64_t, Count> powers{};
    std::uint64_t power = 1;
    for (auto& entry : powers) {
        entry = power;
        power *= Base;
    }
    return powers;
}

constexpr auto c_powersOf5 = Powers<5, 28>();
constexpr auto c_powersOf10 = Powers<10, 20>();

constexpr std::array<char, 200> c_digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// A finite double that is not negative, as mantissa * 2^exponent.
struct SBinary {
    std::uint64_t mantissa;
    int exponent;
};

SBinary TakeApart(double magnitude)
{
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const auto exponent = static_cast<int>(bits >> 52);
    const std::uint64_t fraction = bits & ((std::uint64_t(1) << 52) - 1);
    if (exponent == 0)
        return {fraction, -1074};
    return {fraction | (std::uint64_t(1) << 52), exponent - 1075};
}

using COptionalInteger = std::optional<std::uint64_t>;

#if defined(__SIZEOF_INT128__)
__extension__ typedef unsigned __int128 CWide;

// value * 10^power, power from 0 to 27, rounded half to even; nothing when it needs more than 63 bits.
COptionalInteger RoundProduct(SBinary value, int power)
{
    // At most 116 bits: 53 of the mantissa and 63 of 5^27. The factor 2^power joins the exponent.
    const CWide product = CWide(value.mantissa) * c_powersOf5[static_cast<std::size_t>(power)];
    const int exponent = value.exponent + power;
    if (exponent >= 0) {
        if (exponent > 62 || (product >> (63 - exponent)) != 0)
            return {};
        return static_cast<std::uint64_t>(product) << exponent;
    }
    const int shift = -exponent;
    if (shift > 117)
        return 0;
    const CWide quotient = product >> shift;
    if ((quotient >> 62) != 0)
        return {};
    const CWide remainder = product - (quotient << shift);
    const CWide half = CWide(1) << (shift - 1);
    const auto number = static_cast<std::uint64_t>(quotient);
    const bool up = remainder > half || (remainder == half && (number & 1) != 0);
    return number + (up ? 1 : 0);
}
#else
COptionalInteger RoundProduct(SBinary, int)
{
    return {};
}
#endif

// value / 10^power, power from 1 to 19, rounded half to even; nothing when value is beyond 63 bits or below
// one.
COptionalInteger RoundQuotient(SBinary value, int power)
{
    if (value.exponent > 10 || value.exponent < -52)
        return {};
    std::uint64_t whole = value.mantissa;
    bool hasFraction = false;
    if (value.exponent >= 0) {
        whole <<= value.exponent;
    } else {
        whole >>= -value.exponent;
        hasFraction = (whole << -value.exponent) != value.mantissa;
    }
    const std::uint64_t divisor = c_powersOf10[static_cast<std::size_t>(power)];
    const std::uint64_t quotient = whole / divisor;
    const std::uint64_t remainder = whole - quotient * divisor;
    const std::uint64_t half = divisor / 2;
    const bool up = remainder > half || (remainder == half && (hasFraction || (quotient & 1) != 0));
    return quotient + (up ? 1 : 0);
}

COptionalInteger RoundScaled(SBinary value, int power)
{
    if (power >= 0)
        return power <= 27 ? RoundProduct(value, power) : COptionalInteger();
    return power >= -19 ? RoundQuotient(value, -power) : COptionalInteger();
}

struct SSignificantInteger {
    std::uint64_t number;
    int exponent;
};

// The first `count` digits of `value` as one integer, or nothing when it does not fit.
std::optional<SSignificantInteger> RoundSignificant(SBinary value, int count)
{
    if (count > 17)
        return {};
    if (value.mantissa == 0)
        return SSignificantInteger{0, 0};
    // floor(binary exponent * log10(2)): the decimal exponent or one less.
    const int binaryExponent = static_cast<int>(std::bit_width(value.mantissa)) - 1 + value.exponent;
    int exponent = (binaryExponent * 78913) >> 18;
    COptionalInteger number = RoundScaled(value, count - 1 - exponent);
    // One digit too many: the estimate was low, or 9.99… was rounded up to 10.00…
    while (number && *number >= c_powersOf10[static_cast<std::size_t>(count)])
        number = RoundScaled(value, count - 1 - ++exponent);
    if (!number)
        return {};
    return SSignificantInteger{*number, exponent};
}

char* PutPair(char* end, std::uint64_t pair)
{
    std::memcpy(end - 2, &c_digitPairs[2 * static_cast<std::size_t>(pair)], 2);
    return end - 2;
}

} // namespace

char* CDecimalDigits::PutLast(char* end, int count)
{
    if (m_isText) {
        const std::size_t known = std::min(m_text.size(), static_cast<std::size_t>(count));
        const std::string_view last = m_text.substr(m_text.size() - known);
        m_text.remove_suffix(known);
        std::memcpy(end - known, last.data(), known);
        std::memset(end - count, '0', static_cast<std::size_t>(count) - known);
        return end - count;
    }
    char* const begin = end - count;
    std::uint64_t rest = m_number;
    for (; end - begin >= 2; rest /= 100)
        end = PutPair(end, rest % 100);
    if (end != begin) {
        *--end = static_cast<char>('0' + rest % 10);
        rest /= 10;
    }
    m_number = rest;
    return begin;
}

char* CDecimalDigits::PutRest(char* end) const
{
    if (m_isText && !m_text.empty())
        return static_cast<char*>(std::memcpy(end - m_text.size(), m_text.data(), m_text.size()));
    std::uint64_t rest = m_number;
    for (; rest >= 100; rest /= 100)
        end = PutPair(end, rest % 100);
    if (rest >= 10)
        return PutPair(end, rest);
    *--end = static_cast<char>('0' + rest);
    return end;
}

CDecimalDigits FixedDigits(double magnitude, int decimals, SDigitBuffer& buffer)
{
    if (const auto number = RoundScaled(TakeApart(magnitude), decimals))
        return CDecimalDigits(*number);

    char* const begin = buffer.characters;
    char* const end =
        std::to_chars(begin, std::end(buffer.characters), magnitude, std::chars_format::fixed, decimals).ptr;
    const auto length = static_cast<std::size_t>(end - begin);
    if (decimals == 0)
        return CDecimalDigits(std::string_view(begin, length));
    // Closes the gap of the point.
    std::memmove(begin + 1, begin, length - 1 - static_cast<std::size_t>(decimals));
    return CDecimalDigits(std::string_view(begin + 1, length - 1));
}

SSignificantDigits SignificantDigits(double magnitude, int count, SDigitBuffer& buffer)
{
    if (const auto found = RoundSignificant(TakeApart(magnitude), count))
        return {CDecimalDigits(found->number), found->exponent};

    char* const begin = buffer.characters;
    char* const end =
        std::to_chars(begin, std::end(buffer.characters), magnitude, std::chars_format::scientific, count - 1)
            .ptr;
    // "d.ddde+xx", or "de+xx" without decimals
    const std::size_t length = static_cast<std::size_t>(count) + (count > 1 ? 1 : 0);
    const char* exponentText = begin + length + 1;
    int exponent = 0;
    std::from_chars(exponentText + (*exponentText == '+' ? 1 : 0), end, exponent);
    if (count == 1)
        return {CDecimalDigits(std::string_view(begin, 1)), exponent};
    begin[1] = begin[0];
    return {CDecimalDigits(std::string_view(begin + 1, length - 1)), exponent};
}

} // namespace CommonUI
