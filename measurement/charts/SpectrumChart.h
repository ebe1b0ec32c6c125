#pragma once

#include "../../analysis/profile/PowerSpectrum.h"
#include "../../export/Export.h"

#include <string>
#include <vector>

namespace CommonUI::Measurement
{

/// Draws a power spectrum, both axes logarithmic, down to a trillionth of the greatest power.
/// @param spectrum by rising frequency, powers above 0
/// @return an SVG element; empty for fewer than two frequencies
COMMONUIMEASUREMENT_API std::string DrawSpectrum(const std::vector<Analysis::SSpectrumPoint>& spectrum);

} // namespace CommonUI::Measurement
