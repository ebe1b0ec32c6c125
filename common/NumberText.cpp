#include "common/NumberText.h"

#include "common/DecimalDigits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace CommonUI
{

/// The pieces of a number's text from left to right; `padZeros` and the width are still to be applied.
struct CNumberText::SParts {
    std::string_view prefix;
    std::size_t leadingZeros = 0;
    std::string_view whole;
    bool point = false;
    std::size_t fractionZeros = 0; ///< between the point and the fraction
    std::string_view fraction;
    std::size_t trailingZeros = 0;
    std::string_view suffix;
    bool padZeros = false;

    std::size_t Length() const
    {
        return prefix.size() + leadingZeros + whole.size() + (point ? 1 : 0) + fractionZeros +
               fraction.size() + trailingZeros + suffix.size();
    }
};

namespace
{

bool IsCapital(char conversion)
{
    return conversion >= 'A' && conversion <= 'Z';
}

std::string_view SignText(bool negative, const SNumberFormat& format)
{
    if (negative)
        return "-";
    if (format.plusSign)
        return "+";
    return format.blankSign ? " " : "";
}

/// The exponent of a number as printf shows it, such as "e-05" or "E+100".
class CExponentText
{
public:
    CExponentText(int exponent, bool capital)
    {
        char* at = std::end(m_characters);
        int rest = std::abs(exponent);
        do {
            *--at = static_cast<char>('0' + rest % 10);
            rest /= 10;
        } while (rest != 0 || at > std::end(m_characters) - 2);
        *--at = exponent < 0 ? '-' : '+';
        *--at = capital ? 'E' : 'e';
        m_begin = at;
    }

    std::string_view View() const
    {
        return {m_begin, static_cast<std::size_t>(std::end(m_characters) - m_begin)};
    }

private:
    char m_characters[5];
    const char* m_begin;
};

bool IsIntegerConversion(char conversion)
{
    return std::string_view("duxXo").find(conversion) != std::string_view::npos;
}

std::string_view DigitsInBase(unsigned long long value, char conversion, SDigitBuffer& buffer)
{
    if (conversion == 'd' || conversion == 'u')
        return IntegerDigits(value, 1, buffer);
    char* const begin = buffer.characters;
    char* const end =
        std::to_chars(begin, std::end(buffer.characters), value, conversion == 'o' ? 8 : 16).ptr;
    if (conversion == 'X')
        std::transform(begin, end, begin,
                       [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return {begin, static_cast<std::size_t>(end - begin)};
}

std::string_view WithoutTrailingZeros(std::string_view digits)
{
    while (!digits.empty() && digits.back() == '0')
        digits.remove_suffix(1);
    return digits;
}

char* Put(char* at, std::string_view text)
{
    return std::copy(text.begin(), text.end(), at);
}

} // namespace

void CNumberText::SetReal(double value, const SNumberFormat& format)
{
    SParts parts;
    parts.prefix = SignText(std::signbit(value), format);
    parts.padZeros = format.zeroPad;
    const double magnitude = std::fabs(value);
    if (!std::isfinite(value)) {
        const bool capital = IsCapital(format.conversion) && format.conversion != 'X';
        parts.whole = std::isnan(value) ? (capital ? "NAN" : "nan") : (capital ? "INF" : "inf");
        parts.padZeros = false;
        return Assemble(parts, format);
    }
    const int precision = format.precision < 0 ? 6 : format.precision;
    switch (format.conversion) {
    case 'f':
    case 'F':
        return SetFixed(magnitude, parts, format, precision);
    case 'e':
    case 'E':
        return SetScientific(magnitude, parts, format, precision);
    case 'g':
    case 'G':
        return SetGeneral(magnitude, parts, format, std::max(precision, 1));
    default:
        return SetTruncated(value, format);
    }
}

void CNumberText::SetFixed(double magnitude, SParts& parts, const SNumberFormat& format, int decimals)
{
    SDigitBuffer buffer;
    const int exact = std::min(decimals, SDigitBuffer::c_mostDecimals);
    const std::string_view digits = FixedDigits(magnitude, exact, buffer);
    const std::size_t wholeLength = digits.size() - static_cast<std::size_t>(exact);
    parts.whole = digits.substr(0, wholeLength);
    parts.fraction = digits.substr(wholeLength);
    parts.trailingZeros = static_cast<std::size_t>(decimals - exact);
    parts.point = decimals > 0 || format.alternate;
    Assemble(parts, format);
}

void CNumberText::SetScientific(double magnitude, SParts& parts, const SNumberFormat& format, int decimals)
{
    SDigitBuffer buffer;
    const int exact = std::min(decimals, SDigitBuffer::c_mostSignificant - 1);
    const auto [digits, exponent] = SignificantDigits(magnitude, exact + 1, buffer);
    const CExponentText exponentText(exponent, IsCapital(format.conversion));
    parts.whole = digits.substr(0, 1);
    parts.fraction = digits.substr(1);
    parts.trailingZeros = static_cast<std::size_t>(decimals - exact);
    parts.point = decimals > 0 || format.alternate;
    parts.suffix = exponentText.View();
    Assemble(parts, format);
}

void CNumberText::SetGeneral(double magnitude, SParts& parts, const SNumberFormat& format, int significant)
{
    SDigitBuffer buffer;
    const int exact = std::min(significant, SDigitBuffer::c_mostSignificant);
    const auto [digits, exponent] = SignificantDigits(magnitude, exact, buffer);
    const bool scientific = exponent < -4 || exponent >= significant;
    const CExponentText exponentText(exponent, IsCapital(format.conversion));
    if (scientific)
        parts.suffix = exponentText.View();
    if (exponent < 0 && !scientific) {
        parts.whole = "0";
        parts.fractionZeros = static_cast<std::size_t>(-exponent - 1);
        parts.fraction = digits;
    } else {
        const std::size_t wholeLength = scientific ? 1 : static_cast<std::size_t>(exponent) + 1;
        parts.whole = digits.substr(0, wholeLength);
        parts.fraction = digits.substr(wholeLength);
    }
    if (format.alternate)
        parts.trailingZeros = static_cast<std::size_t>(significant - exact);
    else
        parts.fraction = WithoutTrailingZeros(parts.fraction);
    parts.point = !parts.fraction.empty() || format.alternate;
    Assemble(parts, format);
}

/// An integer conversion of a finite real number.
void CNumberText::SetTruncated(double value, const SNumberFormat& format)
{
    constexpr double c_twoTo63 = 9223372036854775808.0;
    const double whole = std::trunc(value);
    if (whole >= -c_twoTo63 && whole < c_twoTo63)
        return SetSigned(static_cast<long long>(whole), format);
    SNumberFormat decimal = format;
    decimal.conversion = 'f';
    decimal.precision = 0;
    decimal.alternate = false;
    SetReal(whole, decimal);
}

void CNumberText::SetSigned(long long value, const SNumberFormat& format)
{
    const auto bits = static_cast<unsigned long long>(value);
    if (format.conversion == 'd')
        SetInteger(value < 0 ? 0 - bits : bits, SignText(value < 0, format), format);
    else if (IsIntegerConversion(format.conversion))
        SetInteger(bits, {}, format);
    else
        SetReal(static_cast<double>(value), format);
}

void CNumberText::SetUnsigned(unsigned long long value, const SNumberFormat& format)
{
    if (format.conversion == 'd')
        SetInteger(value, SignText(false, format), format);
    else if (IsIntegerConversion(format.conversion))
        SetInteger(value, {}, format);
    else
        SetReal(static_cast<double>(value), format);
}

void CNumberText::SetInteger(unsigned long long magnitude, std::string_view sign, const SNumberFormat& format)
{
    SDigitBuffer buffer;
    SParts parts;
    parts.prefix = sign;
    parts.padZeros = format.zeroPad && format.precision < 0;
    if (magnitude != 0 || format.precision != 0)
        parts.whole = DigitsInBase(magnitude, format.conversion, buffer);
    const auto least = static_cast<std::size_t>(std::max(format.precision, 0));
    if (parts.whole.size() < least)
        parts.leadingZeros = least - parts.whole.size();
    if (format.alternate) {
        if (format.conversion == 'o' && parts.leadingZeros == 0 && !parts.whole.starts_with('0'))
            parts.leadingZeros = 1;
        if (magnitude != 0 && (format.conversion == 'x' || format.conversion == 'X'))
            parts.prefix = format.conversion == 'x' ? "0x" : "0X";
    }
    Assemble(parts, format);
}

/// Fills the width and puts the pieces one behind the other.
void CNumberText::Assemble(SParts& parts, const SNumberFormat& format)
{
    const std::size_t length = parts.Length();
    const auto width = static_cast<std::size_t>(std::max(format.width, 0));
    m_length = std::max(length, width);
    std::size_t blanks = m_length - length;
    if (parts.padZeros && !format.leftAlign) {
        parts.leadingZeros += blanks;
        blanks = 0;
    }
    if (m_length > c_internalSize)
        m_heap = std::make_unique<char[]>(m_length);

    char* at = m_heap ? m_heap.get() : m_internal;
    if (!format.leftAlign)
        at = std::fill_n(at, blanks, ' ');
    at = Put(at, parts.prefix);
    at = std::fill_n(at, parts.leadingZeros, '0');
    at = Put(at, parts.whole);
    if (parts.point)
        *at++ = '.';
    at = std::fill_n(at, parts.fractionZeros, '0');
    at = Put(at, parts.fraction);
    at = std::fill_n(at, parts.trailingZeros, '0');
    at = Put(at, parts.suffix);
    if (format.leftAlign)
        std::fill_n(at, blanks, ' ');
}

CStr ShortestText(double value)
{
    if (std::isnan(value))
        return u"nan";
    char characters[32]; // at most 24 are used: "-1.7976931348623157e+308"
    const auto result = std::to_chars(characters, std::end(characters), value);
    return CStr::FromAscii({characters, static_cast<std::size_t>(result.ptr - characters)});
}

} // namespace CommonUI
