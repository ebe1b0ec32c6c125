#pragma once

#include "examples/surface_report/Steps.h"

#include "examples/analysis/Surface.h"

namespace SurfaceReport
{

/// Applies the set of a step to a surface.
/// @throws std::runtime_error when it does not fit the surface
void Apply(const SStep& step, SurfaceAnalysis::SSurface& surface);

} // namespace SurfaceReport
