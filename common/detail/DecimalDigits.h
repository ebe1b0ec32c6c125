#pragma once

#include <cstdint>
#include <string_view>

namespace CommonUI
{

/// Room for the exact decimal digits of every double.
struct SDigitBuffer {
    static constexpr int c_mostDecimals = 1074;   ///< the smallest double has that many decimals
    static constexpr int c_mostSignificant = 768; ///< no double has more significant digits

    char characters[309 + 1 + c_mostDecimals + 16];
};

/// A row of decimal digits that is written from its end: an integer, or a text that must live as long.
class CDecimalDigits
{
public:
    explicit CDecimalDigits(std::uint64_t number)
        : m_number(number)
    {
    }
    explicit CDecimalDigits(std::string_view text)
        : m_text(text)
        , m_isText(true)
    {
    }

    /// Writes the last `count` digits in front of `end` and forgets them; zeros where no digits are left.
    /// @return where the written digits begin
    char* PutLast(char* end, int count);
    /// Writes the digits that are left in front of `end`, or one zero.
    /// @return where the written digits begin
    char* PutRest(char* end) const;

private:
    std::uint64_t m_number = 0;
    std::string_view m_text;
    bool m_isText = false;
};

/// The first digits of a number: d.ddd * 10^exponent.
struct SSignificantDigits {
    CDecimalDigits digits;
    int exponent;
};

/// The digits of `magnitude` rounded half to even to `decimals` decimals, without the point.
/// @param magnitude finite, not negative
/// @param decimals 0 to SDigitBuffer::c_mostDecimals
/// @param buffer must live as long as the result
CDecimalDigits FixedDigits(double magnitude, int decimals, SDigitBuffer& buffer);

/// The first `count` digits of `magnitude`, rounded half to even.
/// @param magnitude finite, not negative; zero has the exponent 0
/// @param count 1 to SDigitBuffer::c_mostSignificant
/// @param buffer must live as long as the result
SSignificantDigits SignificantDigits(double magnitude, int count, SDigitBuffer& buffer);

} // namespace CommonUI
