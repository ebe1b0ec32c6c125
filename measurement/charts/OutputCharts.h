#pragma once

#include "../../export/Export.h"
#include "../FurtherAnalysis.h"

#include <string>

namespace CommonUI::Measurement
{

/// Draws a curve that an analysis has for a result.
/// @return an SVG element; empty for fewer than two points
COMMONUIMEASUREMENT_API std::string DrawOutputCurve(const SOutputCurve& curve);

} // namespace CommonUI::Measurement
