#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

namespace CommonUI::Analysis
{

/// Several sums that run side by side.
template<std::size_t Count>
struct SSums {
    std::array<double, Count> values{};

    SSums& operator+=(const SSums& other)
    {
        for (std::size_t i = 0; i < Count; ++i)
            values[i] += other.values[i];
        return *this;
    }
    friend SSums operator+(SSums left, const SSums& right) { return left += right; }
};

/// Σ term(i) for i in [first, last), summed by halves so that the rounding error grows with the logarithm
/// of the count. The terms are numbers or SSums.
template<class FTerm>
auto PairwiseSum(std::size_t first, std::size_t last, const FTerm& term) -> decltype(term(first))
{
    constexpr std::size_t c_plain = 128;
    if (last - first > c_plain) {
        const std::size_t middle = first + (last - first) / 2;
        return PairwiseSum(first, middle, term) + PairwiseSum(middle, last, term);
    }
    decltype(term(first)) sum{};
    for (std::size_t i = first; i < last; ++i)
        sum += term(i);
    return sum;
}

/// Σ term(z) over the heights z that are not missing.
template<class FTerm>
auto SumValid(std::span<const double> heights, const FTerm& term) -> decltype(term(0.0))
{
    return PairwiseSum(0, heights.size(), [&](std::size_t i) {
        return std::isnan(heights[i]) ? decltype(term(0.0)){} : term(heights[i]);
    });
}

/// Sum of the valid heights. Where they cancel, what is left is rounding noise, not a sum: it is 0 then, so
/// that the mean of a levelled surface is.
inline double SumHeights(std::span<const double> heights)
{
    const auto [sum, magnitude] = SumValid(heights, [](double z) {
                                      return SSums<2>{z, std::fabs(z)};
                                  }).values;
    const double noise = 4 * std::numeric_limits<double>::epsilon() * magnitude;
    return std::fabs(sum) <= noise ? 0 : sum;
}

} // namespace CommonUI::Analysis
