#pragma once

#include "examples/surface_report/Choices.h"
#include "examples/surface_report/Report.h"

#include "examples/analysis/Surface.h"

namespace SurfaceReport
{

/// Analyses a levelled surface as the options ask: its roughness and that of its profiles, or its grains.
/// @throws EUsage for parameters that are not computed
/// @throws SurfaceAnalysis::ENoPoints when all points are missing
SContent MakeContent(const SurfaceAnalysis::SSurface& surface, const SChoices& choices,
                     const SOptions& options);

} // namespace SurfaceReport
