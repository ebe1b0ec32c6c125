#pragma once

#include "../analysis/surface/Surface.h"
#include "../export/Export.h"
#include "../settings/factory/SettingsFactory.h"
#include "Request.h"

#include <cstddef>

namespace CommonUI::Measurement
{

/// Reads the grain threshold set that a user specification names, which becomes the most recent one of its
/// type.
/// @throws EUnknownSet
/// @throws ERequest for a user specification that names none, and for a set that cannot be read or used
COMMONUIMEASUREMENT_API SGrainSearch LoadGrainSearch(CSettingsFactory& factory, const CStr& userSpec);

/// The limit of a method that measures grains: the one that is given, or what is found on a surface.
/// @throws Analysis::ENoPoints when there is nothing to find it on
COMMONUIMEASUREMENT_API SGrainLimit FindGrainLimit(const SMethod& method, const Analysis::SSurface& surface);

/// The threshold and how it was found: "particles from 12 nm, 50 % of the way from the lowest point to the
/// highest".
COMMONUIMEASUREMENT_API CStr DescribeLimit(const SGrainLimit& limit);

/// How many grains do not count, and why: "3 (of fewer than 5 points, cut off by the border)".
COMMONUIMEASUREMENT_API CStr DescribeLeftOut(std::size_t leftOut, const Analysis::SGrainSelection& selection);

} // namespace CommonUI::Measurement
