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
    /// The bounds as they are given; see Ordered for bounds in any order.
    constexpr CRange(T lower, T upper)
        : m_lower(lower)
        , m_upper(upper)
    {
    }
    /// The range between two bounds given in any order.
    static constexpr CRange Ordered(T a, T b) { return b < a ? CRange(b, a) : CRange(a, b); }

    /// The lower bound, also of an empty range.
    constexpr T GetLower() const { return m_lower; }
    /// The upper bound, also of an empty range.
    constexpr T GetUpper() const { return m_upper; }
    /// Upper minus lower bound: below 0 for an empty range.
    constexpr T GetLength() const { return m_upper - m_lower; }
    /// Also true when a bound is not a number.
    constexpr bool IsEmpty() const { return !(m_lower <= m_upper); }
    /// False for a value that is not a number.
    constexpr bool Contains(T value) const { return m_lower <= value && value <= m_upper; }
    /// The value itself, or the bound that it lies beyond. The range must not be empty.
    constexpr T Clamp(T value) const { return std::clamp(value, m_lower, m_upper); }
    /// The range with the least growth that holds the value.
    constexpr CRange Including(T value) const { return {std::min(m_lower, value), std::max(m_upper, value)}; }
    /// What belongs to both; empty where nothing does.
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
