#pragma once

#include "measurement/NamedSet.h"
#include "measurement/Steps.h"

namespace CommonUI::Measurement
{

/// Reads a plane correction or a filter.
/// @param subject by which it was named, for the message
/// @throws ERequest for an unusable set
SStep ReadStep(SNamedSet& set, const CStr& subject);

/// The same for roughness settings of images or profiles.
SRoughnessSet ReadRoughness(SNamedSet& set, const CStr& subject);

} // namespace CommonUI::Measurement
