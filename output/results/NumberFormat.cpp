#include "output/results/NumberFormat.h"

#include "common/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string_view>

namespace CommonUI
{

namespace
{

using EFormatSpecifier = CParameter::EFormatSpecifier;

constexpr SNumberFormat Fixed(int width, int precision)
{
    return {.conversion = 'f', .width = width, .precision = precision};
}

constexpr SNumberFormat Exponent(int width, int precision)
{
    return {.conversion = 'G', .width = width, .precision = precision};
}

// The limits of single precision that results are cut at. They differ by a factor of a hundred on purpose.
constexpr double c_infinite = 1.7e35F;
constexpr double c_minusInfinite = -1.7e37F;
constexpr double c_notAvailable = 8.506e37;
constexpr double c_integerLimit = 32767;

// More digits than anyone reads, and few enough for any memory.
constexpr int c_largestCount = 99;

// The formats of one digit count: the first for magnitudes below 0.1, each next one for a decade more, the
// last for all larger magnitudes.
struct SDigitsRow {
    int count;
    std::array<SNumberFormat, 11> formats;
};

// The irregular widths of neighbouring decades are what columns of results have always had.
constexpr SDigitsRow c_rows[] = {
    {8,
     {Exponent(3, 1), Exponent(3, 1), Fixed(3, 0), Fixed(3, 0), Fixed(3, 0), Fixed(4, 0), Fixed(5, 0),
      Exponent(4, 1)}},
    {8,
     {Exponent(4, 2), Exponent(4, 2), Fixed(4, 1), Fixed(4, 0), Fixed(4, 0), Fixed(4, 0), Fixed(5, 0),
      Exponent(4, 2)}},
    {8,
     {Exponent(5, 3), Exponent(5, 3), Fixed(5, 2), Fixed(5, 1), Fixed(5, 0), Fixed(5, 0), Fixed(5, 0),
      Exponent(5, 3)}},
    {7, {Exponent(6, 4), Fixed(6, 4), Fixed(6, 3), Fixed(6, 2), Fixed(6, 1), Fixed(6, 0), Exponent(6, 4)}},
    {8,
     {Exponent(7, 5), Fixed(7, 5), Fixed(7, 4), Fixed(7, 3), Fixed(7, 2), Fixed(7, 1), Fixed(6, 0),
      Exponent(7, 5)}},
    {9,
     {Exponent(10, 8), Fixed(8, 6), Fixed(8, 5), Fixed(8, 4), Fixed(8, 3), Fixed(8, 2), Fixed(8, 1),
      Fixed(7, 0), Exponent(10, 6)}},
    {10,
     {Exponent(10, 7), Fixed(9, 7), Fixed(9, 6), Fixed(9, 5), Fixed(9, 4), Fixed(9, 3), Fixed(9, 2),
      Fixed(9, 1), Fixed(8, 0), Exponent(10, 6)}},
    {11,
     {Exponent(10, 8), Fixed(10, 8), Fixed(10, 7), Fixed(10, 6), Fixed(10, 5), Fixed(10, 4), Fixed(10, 3),
      Fixed(10, 2), Fixed(10, 1), Fixed(9, 0), Exponent(10, 6)}},
};

constexpr double c_decades[] = {0.1, 1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};

const SDigitsRow& RowOf(int digits)
{
    constexpr int c_largest = static_cast<int>(std::size(c_rows));
    return c_rows[(digits < 0 ? 6 : std::min(digits, c_largest)) - 1];
}

std::u16string_view ZeroText(int digits)
{
    constexpr std::u16string_view c_zeros = u"0.00000000";
    return digits >= 3 && digits <= 8 ? c_zeros.substr(0, static_cast<std::size_t>(digits) + 2)
                                      : c_zeros.substr(0, 3);
}

// An exponent form without leading blanks and without leading zeros in its exponent.
CStr CleanExponent(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::size_t exponent = text.find('E');
    if (exponent == std::string_view::npos)
        return CStr::FromAscii(text);
    const std::size_t signEnd = exponent + 2;
    const std::size_t digits = std::min(text.find_first_not_of('0', signEnd), text.size());
    CStr cleaned = CStr::FromAscii(text.substr(0, signEnd));
    return cleaned.AppendAscii(text.substr(digits));
}

CStr TextOf(double value, const SNumberFormat& format)
{
    const CNumberText text(value, format);
    return format.conversion == 'G' ? CleanExponent(text.View()) : CStr::FromAscii(text.View());
}

} // namespace

CStr GetFormatString(const CParameter::SFormatSpecifier& format)
{
    switch (format.type) {
    case EFormatSpecifier::FormatDecimals:
        return CStr::Format(u"%%.%dlf", format.count);
    case EFormatSpecifier::FormatDigits:
        return CStr::Format(u"%%.%dlG", format.count);
    case EFormatSpecifier::FormatInteger:
        return u"%d";
    }
    return u"%lf";
}

CStr FormatParameterValue(double value, const CParameter::SFormatSpecifier& format)
{
    if (std::isnan(value))
        return {};
    if (std::isinf(value))
        return value > 0 ? u"INF" : u"-INF";
    const int count = std::clamp(format.count, 0, c_largestCount);
    SNumberFormat number;
    switch (format.type) {
    case EFormatSpecifier::FormatDecimals:
        number = Fixed(0, count);
        break;
    case EFormatSpecifier::FormatDigits:
        number = Exponent(0, count);
        break;
    case EFormatSpecifier::FormatInteger:
        number = Fixed(0, 0);
        value = std::round(value);
        break;
    }
    return CStr::FromAscii(CNumberText(value + 0.0, number).View()); // no "-0"
}

CStr GenerateNumberFormatText(const CParameter::SFormatSpecifier& format)
{
    const CStr kind = GetFormatSpecifierEnum().GetFriendlyString(static_cast<int>(format.type));
    return CStr::Format(u"%d %s", format.count, kind);
}

CStr FormatResultValue(double value, int digits, bool integer)
{
    if (std::isnan(value))
        return {};
    if (value >= c_infinite)
        return u"INF";
    if (value <= c_minusInfinite)
        return u"-INF";
    const double magnitude = std::abs(value);
    if (integer && magnitude < c_integerLimit && value == std::trunc(value))
        return CStr::FromAscii(
            CNumberText(static_cast<long long>(value), SNumberFormat{.conversion = 'd'}).View());
    if (value == 0)
        return ZeroText(digits);
    if (digits == 0)
        return TextOf(value, magnitude <= 1e-5 ? Exponent(9, 2) : Fixed(1, 0));
    const SDigitsRow& row = RowOf(digits);
    const auto decade = std::upper_bound(std::begin(c_decades), std::end(c_decades), magnitude);
    const auto column = std::min<std::ptrdiff_t>(decade - std::begin(c_decades), row.count - 1);
    // Cannot be reached while the limit of "INF" lies below this one; it keeps the width of a column if that
    // moves.
    if (column == row.count - 1 && !(value < c_notAvailable))
        return u"   NA";
    return TextOf(value, row.formats[static_cast<std::size_t>(column)]);
}

} // namespace CommonUI
