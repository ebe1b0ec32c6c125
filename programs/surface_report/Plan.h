#pragma once

#include "measurement/Batch.h"
#include "measurement/Request.h"
#include "measurement/Steps.h"

#include <cstddef>
#include <optional>
#include <string>

namespace SurfaceReport
{

/// What a run is made of besides the surface.
struct SPlan {
    CommonUI::Measurement::SSets sets;
    CommonUI::Measurement::SRequest request;
    std::optional<CommonUI::Measurement::SBatch> batch{};
};

/// The name of a report that a step of a batch sequence writes, "02-Basic-HTML": letters and digits of the
/// name, and all that is beyond ASCII, with hyphens between them.
std::string NameStepReport(std::size_t step, const CommonUI::CStr& name);

} // namespace SurfaceReport
