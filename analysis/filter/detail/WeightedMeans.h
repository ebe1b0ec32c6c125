#pragma once

#include "analysis/surface/Surface.h"

#include <complex>
#include <functional>
#include <span>

namespace CommonUI::Analysis
{

/// Replaces a sequence by its weighted sums, as the convolution with the weights of a filter, with 0 beyond
/// the ends. The real parts are heights, the imaginary parts 1 for a valid point and 0 for a missing one.
using FWeightedSums = std::function<void(std::span<std::complex<double>>)>;

/// The weighted means of a separable filter: sums along the lines, then across them, of the heights, divided
/// by those of the validity. So weights that reach beyond a border or meet missing points leave the others
/// their share, a constant passes unchanged to the last bit, and missing points stay missing. Runs in several
/// threads.
/// @param along for each line; empty leaves the lines as they are
/// @param across for each column
SSurface ComputeWeightedMeans(const SSurface& surface, const FWeightedSums& along,
                              const FWeightedSums& across);

} // namespace CommonUI::Analysis
