#include "controls/StepSize.h"

#include "export/FromChars.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string_view>

namespace CommonUI
{

namespace
{

struct SDecimal {
    double mantissa = 1; // in [1, 10)
    int exponent = 0;
};

// Takes a positive, finite number apart. Its shortest decimal form is exact where floor(log10(x)) is a
// matter of rounding.
SDecimal Split(double number)
{
    char text[40];
    const char* const end =
        std::to_chars(std::begin(text), std::end(text), number, std::chars_format::scientific).ptr;
    SDecimal result;
    const char* digits = FromChars(std::begin(text), end, result.mantissa, std::chars_format::fixed).ptr;
    digits += digits[1] == '+' ? 2 : 1; // behind the 'e'
    std::from_chars(digits, end, result.exponent);
    return result;
}

bool IsPositive(double number)
{
    return number > 0 && std::isfinite(number);
}

// 10^exponent by repeated squaring; exact up to 22.
double PowerOfTen(int exponent)
{
    double result = 1;
    double square = 10;
    while (exponent > 0) {
        if (exponent % 2 != 0)
            result *= square;
        square *= square;
        exponent /= 2;
    }
    return result;
}

} // namespace

void CStepSize::Set(double step)
{
    const double size = std::fabs(step);
    const SDecimal parts = IsPositive(size) ? Split(size) : SDecimal();
    m_mantissa = parts.mantissa;
    m_exponent = std::clamp(parts.exponent, m_possible.lowest, m_possible.highest);
}

void CStepSize::SetForRange(double minimum, double maximum, double factor)
{
    const double size = std::max((maximum - minimum) * factor, (minimum + maximum) * factor * 0.5);
    Set(size > 0 ? size : 1);
    m_mantissa = 1;
}

void CStepSize::Change(int delta, double value)
{
    const double size = std::fabs(value);
    const int magnitude = IsPositive(size) ? Split(size).exponent : 0;
    const auto bound = [&](const SLimit& limit) {
        return static_cast<long long>(limit.exponent) + (limit.relative ? magnitude : 0);
    };
    const long long changed = static_cast<long long>(m_exponent) + delta;
    const bool allowed = delta < 0 ? changed >= std::max<long long>(bound(lowest), m_possible.lowest)
                                   : changed <= std::min<long long>(bound(highest), m_possible.highest);
    if (allowed)
        m_exponent = static_cast<int>(changed);
}

double CStepSize::GetStep() const noexcept
{
    return m_exponent < 0 ? m_mantissa / PowerOfTen(-m_exponent) : m_mantissa * PowerOfTen(m_exponent);
}

} // namespace CommonUI
