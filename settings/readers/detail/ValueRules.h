#pragma once

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace CommonUI
{

/// @file
/// Which values a set may have: the answers of its reader and of its writer.

inline bool IsFromOne(int value, int greatest)
{
    return value >= 1 && value <= greatest;
}

inline bool IsOdd(int value)
{
    return value % 2 != 0;
}

inline bool IsPositive(double value, double greatest)
{
    return value > 0 && value <= greatest;
}

inline bool AreFinite(const std::vector<double>& values, int count)
{
    return std::cmp_equal(values.size(), count) &&
           std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

} // namespace CommonUI
