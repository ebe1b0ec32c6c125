#include "common/NumberText.h"

#include "export/FromChars.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace CommonUI
{

namespace
{

// The trimmed text in narrow characters for std::from_chars, which wants no plus sign. Empty when it is no
// number for sure.
std::string NarrowNumber(std::u16string_view text)
{
    text = TrimView(text);
    if (text.starts_with(u'+')) {
        text.remove_prefix(1);
        if (text.starts_with(u'-'))
            return {};
    }
    if (std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0x7E; }))
        return {};
    std::string narrow(text.size(), '\0');
    std::transform(text.begin(), text.end(), narrow.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return narrow;
}

// Whether a number that no double holds is too great, not too small: where its first digit stands tells.
bool IsHuge(std::string_view number)
{
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    long long magnitude = static_cast<long long>(point) - static_cast<long long>(first);
    if (mantissaEnd == number.size())
        return magnitude > 0;
    std::string_view exponentText = number.substr(mantissaEnd + 1);
    if (exponentText.starts_with('+'))
        exponentText.remove_prefix(1);
    long long exponent = 0;
    if (std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent).ec !=
        std::errc())
        return !exponentText.starts_with('-');
    return exponent > -magnitude;
}

} // namespace

bool ParseDouble(std::u16string_view text, double& value)
{
    const std::string number = NarrowNumber(text);
    const char* const end = number.data() + number.size();
    double found = 0;
    const auto result = FromChars(number.data(), end, found);
    if (result.ptr != end || result.ec == std::errc::invalid_argument)
        return false;
    if (result.ec == std::errc::result_out_of_range)
        found = std::copysign(IsHuge(number) ? std::numeric_limits<double>::infinity() : 0.0,
                              number.front() == '-' ? -1.0 : 1.0);
    value = found;
    return true;
}

bool ParseInteger(std::u16string_view text, long long& value)
{
    const std::string number = NarrowNumber(text);
    const char* const end = number.data() + number.size();
    long long found = 0;
    const auto result = std::from_chars(number.data(), end, found);
    if (result.ptr != end || result.ec != std::errc())
        return false;
    value = found;
    return true;
}

} // namespace CommonUI
