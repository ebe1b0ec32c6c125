#include "common/NumberText.h"

#include "common/detail/DecimalDigits.h"
#include "common/Exceptions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>

namespace CommonUI
{

namespace
{

constexpr std::size_t c_fewCharacters = 16;
// More than an integer's digits in any base with sign and prefix.
constexpr std::size_t c_integerOverhead = 32 + c_fewCharacters;
// More than a double's digits before the point, its sign and point.
constexpr std::size_t c_realOverhead = 312 + c_fewCharacters;
// More than the digits of an exponent: "e-308".
constexpr std::size_t c_exponentRoom = 8;

bool IsCapital(char conversion)
{
    return conversion >= 'A' && conversion <= 'Z';
}

bool IsIntegerConversion(char conversion)
{
    return conversion == 'd' || conversion == 'u' || conversion == 'x' || conversion == 'X' ||
           conversion == 'o';
}

// %d, as most integers are written.
bool IsPlain(const SNumberFormat& format)
{
    return format.conversion == 'd' && format.width <= 0 && format.precision < 0 && !format.plusSign &&
           !format.blankSign;
}

std::string_view SignText(bool negative, const SNumberFormat& format)
{
    if (negative)
        return "-";
    if (format.plusSign)
        return "+";
    return format.blankSign ? " " : "";
}

char* PutInBase(char* end, unsigned long long value, unsigned bits, bool capital)
{
    const char* const digits = capital ? "0123456789ABCDEF" : "0123456789abcdef";
    for (; value != 0; value >>= bits)
        *--end = digits[value & ((1u << bits) - 1)];
    return end;
}

} // namespace

void CNumberText::SetReal(double value, const SNumberFormat& format)
{
    const double magnitude = std::fabs(value);
    const int precision = format.precision < 0 ? 6 : format.precision;
    if (!(magnitude < std::numeric_limits<double>::infinity()))
        return SetNotFinite(value, format);
    switch (format.conversion) {
    case 'f':
    case 'F':
        SetFixed(magnitude, format, precision);
        break;
    case 'e':
    case 'E':
        SetScientific(magnitude, format, precision);
        break;
    case 'g':
    case 'G':
        SetGeneral(magnitude, format, std::max(precision, 1));
        break;
    default:
        return SetTruncated(value, format);
    }
    Complete(SignText(std::signbit(value), format), format, format.zeroPad);
}

void CNumberText::SetNotFinite(double value, const SNumberFormat& format)
{
    const std::string_view sign = SignText(std::signbit(value), format);
    const bool capital = IsCapital(format.conversion) && format.conversion != 'X';
    Begin(format, c_integerOverhead, 0);
    m_begin -= 3;
    std::memcpy(m_begin, std::isnan(value) ? (capital ? "NAN" : "nan") : (capital ? "INF" : "inf"), 3);
    Complete(sign, format, false);
}

void CNumberText::SetFixed(double magnitude, const SNumberFormat& format, int decimals)
{
    SDigitBuffer buffer;
    const int exact = std::min(decimals, SDigitBuffer::c_mostDecimals);
    Begin(format, c_realOverhead + static_cast<std::size_t>(decimals),
          static_cast<std::size_t>(decimals - exact));
    PutDigits(FixedDigits(magnitude, exact, buffer), exact, decimals > 0 || format.alternate);
    AppendZeros(decimals - exact);
}

void CNumberText::SetScientific(double magnitude, const SNumberFormat& format, int decimals)
{
    SDigitBuffer buffer;
    const int exact = std::min(decimals, SDigitBuffer::c_mostSignificant - 1);
    const auto found = SignificantDigits(magnitude, exact + 1, buffer);
    Begin(format, c_realOverhead + static_cast<std::size_t>(decimals),
          c_exponentRoom + static_cast<std::size_t>(decimals - exact));
    PutDigits(found.digits, exact, decimals > 0 || format.alternate);
    AppendZeros(decimals - exact);
    AppendExponent(found.exponent, IsCapital(format.conversion));
}

void CNumberText::SetGeneral(double magnitude, const SNumberFormat& format, int significant)
{
    SDigitBuffer buffer;
    const int exact = std::min(significant, SDigitBuffer::c_mostSignificant);
    const auto found = SignificantDigits(magnitude, exact, buffer);
    const bool scientific = found.exponent < -4 || found.exponent >= significant;
    const int decimals = exact - 1 - (scientific ? 0 : found.exponent);
    Begin(format, c_realOverhead + static_cast<std::size_t>(significant),
          c_exponentRoom + static_cast<std::size_t>(significant - exact));
    PutDigits(found.digits, decimals, decimals > 0 || format.alternate);
    if (format.alternate)
        AppendZeros(significant - exact);
    else if (decimals > 0)
        DropZeros();
    if (scientific)
        AppendExponent(found.exponent, IsCapital(format.conversion));
}

// An integer conversion of a finite real number.
void CNumberText::SetTruncated(double value, const SNumberFormat& format)
{
    if (!IsIntegerConversion(format.conversion))
        throw EInternal(u"NumberText", __LINE__, u"CNumberText::SetTruncated", u"no conversion of a number");
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
    const unsigned long long magnitude = value < 0 ? 0 - bits : bits;
    if (IsPlain(format)) {
        m_end = std::end(m_internal);
        m_begin = CDecimalDigits(magnitude).PutRest(m_end);
        if (value < 0)
            *--m_begin = '-';
    } else if (format.conversion == 'd') {
        SetInteger(magnitude, SignText(value < 0, format), format);
    } else if (IsIntegerConversion(format.conversion)) {
        SetInteger(bits, {}, format);
    } else {
        SetReal(static_cast<double>(value), format);
    }
}

void CNumberText::SetUnsigned(unsigned long long value, const SNumberFormat& format)
{
    if (IsIntegerConversion(format.conversion))
        SetInteger(value, format.conversion == 'd' ? SignText(false, format) : std::string_view(), format);
    else
        SetReal(static_cast<double>(value), format);
}

void CNumberText::SetInteger(unsigned long long magnitude, std::string_view sign, const SNumberFormat& format)
{
    const char conversion = format.conversion;
    const int least = format.precision < 0 ? 1 : format.precision;
    Begin(format, c_integerOverhead + static_cast<std::size_t>(least), 0);
    if (conversion == 'o')
        m_begin = PutInBase(m_begin, magnitude, 3, false);
    else if (conversion == 'x' || conversion == 'X')
        m_begin = PutInBase(m_begin, magnitude, 4, conversion == 'X');
    else if (magnitude != 0)
        m_begin = CDecimalDigits(magnitude).PutRest(m_begin);
    while (m_end - m_begin < least)
        *--m_begin = '0';
    if (format.alternate && conversion == 'o' && (m_begin == m_end || *m_begin != '0'))
        *--m_begin = '0';
    if (format.alternate && magnitude != 0 && (conversion == 'x' || conversion == 'X'))
        sign = conversion == 'x' ? "0x" : "0X";
    Complete(sign, format, format.zeroPad && format.precision < 0);
}

// Makes room for `length` characters and the width, with `margin` more to the right of where digits are put.
void CNumberText::Begin(const SNumberFormat& format, std::size_t length, std::size_t margin)
{
    const std::size_t room = length + static_cast<std::size_t>(std::max(format.width, 0)) + margin;
    char* end = std::end(m_internal);
    if (room > c_internalSize) {
        m_heap = std::make_unique<char[]>(room);
        end = m_heap.get() + room;
    }
    m_begin = m_end = end - margin;
}

void CNumberText::PutDigits(CDecimalDigits digits, int decimals, bool point)
{
    m_begin = digits.PutLast(m_begin, decimals);
    if (point)
        *--m_begin = '.';
    m_begin = digits.PutRest(m_begin);
}

void CNumberText::AppendZeros(int count)
{
    m_end = std::fill_n(m_end, count, '0');
}

// Drops the zeros at the end of the decimals, and the point when nothing follows it.
void CNumberText::DropZeros()
{
    while (m_end[-1] == '0')
        --m_end;
    if (m_end[-1] == '.')
        --m_end;
}

void CNumberText::AppendExponent(int exponent, bool capital)
{
    *m_end++ = capital ? 'E' : 'e';
    *m_end++ = exponent < 0 ? '-' : '+';
    const int magnitude = std::abs(exponent);
    if (magnitude >= 100)
        *m_end++ = static_cast<char>('0' + magnitude / 100);
    *m_end++ = static_cast<char>('0' + magnitude / 10 % 10);
    *m_end++ = static_cast<char>('0' + magnitude % 10);
}

// Puts the prefix before the digits and fills the width.
void CNumberText::Complete(std::string_view prefix, const SNumberFormat& format, bool padZeros)
{
    const auto length = static_cast<std::size_t>(m_end - m_begin) + prefix.size();
    const auto width = static_cast<std::size_t>(std::max(format.width, 0));
    const std::size_t missing = width > length ? width - length : 0;
    if (padZeros && !format.leftAlign)
        PutBefore(missing, '0');
    for (std::size_t i = prefix.size(); i > 0; --i)
        *--m_begin = prefix[i - 1];
    if (format.leftAlign) {
        std::memmove(m_begin - missing, m_begin, length);
        m_begin -= missing;
        std::fill_n(m_end - missing, missing, ' ');
    } else if (!padZeros) {
        PutBefore(missing, ' ');
    }
}

void CNumberText::PutBefore(std::size_t count, char character)
{
    // Few characters are one store of a fixed size: the room that Begin makes is never used up.
    if (count <= c_fewCharacters)
        std::memset(m_begin - c_fewCharacters, character, c_fewCharacters);
    else
        std::memset(m_begin - count, character, count);
    m_begin -= count;
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
