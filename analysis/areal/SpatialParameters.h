#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <vector>

namespace CommonUI::Analysis
{

/// Spatial parameters of a surface as it is:
/// - Sal, Str (ISO 25178-2): shortest distance at which the autocorrelation falls to 0.2, and this divided by
///   the longest: m, 1. See CAutocorrelation.
/// - Std (ISO 25178-2): texture direction, degrees. See ComputeTextureDirection.
/// - Scl20, Scl37, Str20, Str37 (not of the standard): as Sal and Str, at 0.20 and at 0.37
///
/// Where the autocorrelation does not fall so far within half the surface, Sal and Scl are NaN if that is so
/// in all directions, and Str is NaN if it is so in one, as along the grooves of a regular grating.
/// @param mean of the valid heights
/// @return Sal Str Std Scl20 Scl37 Str20 Str37
COMMONUIANALYSIS_API std::vector<SValue> ComputeSpatial(const SSurface& surface, double mean);

} // namespace CommonUI::Analysis
