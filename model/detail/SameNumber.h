#pragma once

namespace CommonUI
{

/// Whether two numbers are equal, or both no number.
inline bool SameNumber(double a, double b) noexcept
{
    return a == b || (a != a && b != b);
}

} // namespace CommonUI
