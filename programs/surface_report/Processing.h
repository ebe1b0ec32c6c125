#pragma once

#include "programs/surface_report/Steps.h"

#include "analysis/surface/Surface.h"

namespace SurfaceReport
{

/// Applies the set of a step to a surface.
/// @throws std::runtime_error when it does not fit the surface
void Apply(const SStep& step, CommonUI::Analysis::SSurface& surface);

} // namespace SurfaceReport
