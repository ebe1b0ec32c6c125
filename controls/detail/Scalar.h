#pragma once

#include "controls/StepSize.h"
#include "export/FromChars.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace CommonUI
{

/// The number as a user reads it: 0.1 for 0.1f, where a plain conversion gives 0.100000001490116.
inline double ToDouble(float value)
{
    char text[40];
    double result = value;
    if (std::isfinite(value)) {
        const char* const end = std::to_chars(std::begin(text), std::end(text), value).ptr;
        FromChars(std::begin(text), end, result);
    }
    return result;
}

inline double ToDouble(int value)
{
    return value;
}

/// The value of the type that is nearest to a number, which is not not-a-number. An integer drops the
/// fraction.
template<class T>
T FromDouble(double number)
{
    using CLimits = std::numeric_limits<T>;
    return static_cast<T>(std::clamp<double>(number, CLimits::lowest(), CLimits::max()));
}

inline bool IsNumber(float value)
{
    return !std::isnan(value);
}

inline bool IsNumber(int)
{
    return true;
}

/// From the least exponent of a positive number of the type to the greatest.
template<class T>
constexpr CStepSize::SExponents GetStepExponents()
{
    if constexpr (std::numeric_limits<T>::is_integer)
        return {0, std::numeric_limits<T>::digits10};
    else
        return {-45, std::numeric_limits<T>::max_exponent10};
}

} // namespace CommonUI
