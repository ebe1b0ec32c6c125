#pragma once

#include <cstdint>
#include <string_view>

namespace CommonUI
{

/// Where the digits of one number lie: room for the exact decimal digits of every double.
struct SDigitBuffer {
    static constexpr int c_mostDecimals = 1074;   ///< the smallest double has that many decimals
    static constexpr int c_mostSignificant = 768; ///< no double has more significant digits

    char characters[309 + 1 + c_mostDecimals + 16];
};

/// The first digits of a number: d.ddd * 10^exponent.
struct SSignificantDigits {
    std::string_view digits;
    int exponent;
};

/// The decimal digits of `value`, at least `least` of them with zeros in front; at most 48.
std::string_view IntegerDigits(std::uint64_t value, int least, SDigitBuffer& buffer);

/// The digits of `magnitude` rounded half to even to `decimals` decimals, without the point: at least one
/// digit, and then the decimals.
/// @param magnitude finite, not negative
/// @param decimals 0 to SDigitBuffer::c_mostDecimals
std::string_view FixedDigits(double magnitude, int decimals, SDigitBuffer& buffer);

/// The first `count` digits of `magnitude`, rounded half to even.
/// @param magnitude finite, not negative; zero has the exponent 0
/// @param count 1 to SDigitBuffer::c_mostSignificant
SSignificantDigits SignificantDigits(double magnitude, int count, SDigitBuffer& buffer);

} // namespace CommonUI
