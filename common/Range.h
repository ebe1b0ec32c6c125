#pragma once

#include <algorithm>

namespace CommonUI
{

/// A range of numbers from a lower to an upper bound, both of which belong to it. A range whose lower bound
/// is above its upper one is empty.
template<class T>
class CRange
{
public:
    constexpr CRange() = default;
    constexpr CRange(T lower, T upper)
        : m_lower(lower)
        , m_upper(upper)
    {
    }
    /// The range between two bounds given in any order.
    static constexpr CRange Ordered(T a, T b) { return b < a ? CRange(b, a) : CRange(a, b); }

    constexpr T GetLower() const { return m_lower; }
    constexpr T GetUpper() const { return m_upper; }
    constexpr T GetLength() const { return m_upper - m_lower; }
    /// Also true when a bound is not a number.
    constexpr bool IsEmpty() const { return !(m_lower <= m_upper); }
    /// False for a value that is not a number.
    constexpr bool Contains(T value) const { return m_lower <= value && value <= m_upper; }
    /// The value itself, or the bound that it lies beyond. The range must not be empty.
    constexpr T Clamp(T value) const { return std::clamp(value, m_lower, m_upper); }
    /// The range with the least growth that holds the value.
    constexpr CRange Including(T value) const { return {std::min(m_lower, value), std::max(m_upper, value)}; }
    constexpr CRange Intersection(const CRange& other) const
    {
        return {std::max(m_lower, other.m_lower), std::min(m_upper, other.m_upper)};
    }

    constexpr bool operator==(const CRange& other) const = default;

private:
    T m_lower{};
    T m_upper{};
};

} // namespace CommonUI
