#pragma once

#include "analysis/form/detail/PolynomialBasis.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// Pairs of points a distance apart along a line or, if down, across the lines.
struct SPairs {
    bool down = false;
    std::size_t distance = 1;  ///< in points or lines
    double leastDeviation = 0; ///< of their differences; above 0 for heights that were rounded to steps

    std::size_t GetColumns() const { return down ? 0 : distance; }
    std::size_t GetLines() const { return down ? distance : 0; }
};

/// The pairs of both directions.
struct SPairing {
    SPairs along{};
    SPairs across{.down = true};
};

/// Neighbours, if most of their differences differ. If not, the heights were rounded to steps larger than the
/// slope or the noise: then points so far apart, at most 16 and a 32nd of the grid, that a tenth of their
/// differences is off by such a step, which is no outlier.
SPairing ChoosePairing(const SGrid& grid);

/// The standard deviation of the differences of pairs, 1.4826 times their median absolute deviation, which a
/// few steps do not change; 0 without a valid pair.
double FindDeviation(const SGrid& grid, const SPairs& pairs);

/// Fits a polynomial to the differences of pairs. Outliers, further than five standard deviations from the
/// median of their direction, are left out: so steps do not count.
/// @return the coefficients of the basis' terms after the constant
std::vector<double> FitSlopes(const CPolynomialBasis& basis, const SGrid& grid, const SPairing& pairing);

} // namespace CommonUI::Analysis
