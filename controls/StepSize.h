#pragma once

#include "../export/Export.h"

namespace CommonUI
{

/// The size of a step as a mantissa and a power of ten, which people change in powers of ten.
class COMMONUI_API CStepSize
{
public:
    /// What is kept of a number of a type: the powers of ten that it can stand for.
    struct SExponents {
        int lowest = 0;  ///< of the smallest step
        int highest = 0; ///< of the largest step
    };
    /// A bound of the exponent: absolute, or counted from the power of ten of the value that is stepped.
    struct SLimit {
        int exponent = 0;     ///< a power of ten
        bool relative = true; ///< whether it counts from the power of ten of the value
    };

    /// A step of 1. @param possible the exponents that the type of the value can hold; the step never leaves
    /// them
    explicit CStepSize(SExponents possible) noexcept
        : m_possible(possible)
    {
    }

    /// The absolute value counts; 0, infinity and NaN give a step of 1.
    void Set(double step);
    /// The power of ten at or below max((maximum - minimum) * factor, (minimum + maximum) / 2 * factor); a
    /// step of 1 when that is no positive number.
    void SetForRange(double minimum, double maximum, double factor);
    /// Moves the exponent by `delta` where its limits allow it for a value.
    void Change(int delta, double value);

    /// mantissa * 10^exponent
    double GetStep() const noexcept;
    /// In [1, 10).
    double GetMantissa() const noexcept { return m_mantissa; }
    /// The power of ten; 0 at first.
    int GetExponent() const noexcept { return m_exponent; }

    /// How small Change may make the step.
    SLimit lowest{-5, true};
    /// How large Change may make the step.
    SLimit highest{5, true};

private:
    SExponents m_possible;
    double m_mantissa = 1;
    int m_exponent = 0;
};

} // namespace CommonUI
