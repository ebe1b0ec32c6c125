#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// How far a response is from a straight line.
struct SLinearity {
    double deviation = c_undefined;         ///< the largest distance from the line along z, m
    double deviationRms = c_undefined;      ///< root mean square of the distances, m
    double share = c_undefined;             ///< the largest one in percent of the range of the heights
    double amplification = c_undefined;     ///< the slope of the line, m/m; NaN without a reference
    std::string_view reason{};              ///< why there is none
    std::string_view amplificationReason{}; ///< why there is no amplification
};

/// The response of an instrument (ISO 25178-600) to a surface that is known: heights over those of the
/// reference at the same points. The line is the least-squares line through all points at which both are
/// there.
COMMONUIANALYSIS_API SLinearity MeasureLinearity(const SSurface& surface, const SSurface& reference);

/// Of a surface that is plane and inclined: heights over the position. The line is the least-squares
/// plane, of a profile the least-squares line.
COMMONUIANALYSIS_API SLinearity MeasureLinearity(const SSurface& surface);

} // namespace CommonUI::Analysis
