#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// The power of waves by their frequency.
struct SSpectrumPoint {
    double frequency = 0; ///< 1/m, above 0
    double power = 0;     ///< power spectral density, m³: heights squared per frequency
};

/// The mean power spectral density of the lines of a surface, one-sided: its integral over the frequency is
/// the mean square of the heights about the lines' means. Each line fades towards its ends (Hann window), so
/// that these are not taken for waves; missing points count as points at the mean, and lines without a valid
/// point do not count.
///
/// Of a large surface some lines are taken, evenly spread: as many as have about four million points
/// together, but one at least. High frequencies are put together to bands of equal ratios.
/// @param mostPoints of the result, at least 2
/// @return by rising frequency; empty for lines of fewer than four points, and where no power is a number
///     above 0, as on a flat surface
COMMONUIANALYSIS_API std::vector<SSpectrumPoint> ComputePowerSpectrum(const SSurface& surface,
                                                                      std::size_t mostPoints);

} // namespace CommonUI::Analysis
