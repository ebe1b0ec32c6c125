#pragma once

#include "programs/surface_report/Choices.h"
#include "programs/surface_report/Report.h"

#include "analysis/surface/Surface.h"

#include <optional>
#include <vector>

namespace SurfaceReport
{

/// A surface and what was done to it.
struct SInput {
    CommonUI::Analysis::SSurface surface; ///< as it is analysed
    /// As it was read, to be shown beside the other; only where it is asked for.
    std::optional<CommonUI::Analysis::SSurface> raw{};
    std::vector<CommonUI::CStr> steps{}; ///< what was applied after the levelling, in this order
};

/// Analyses a surface as the options ask: its roughness, beside that of the raw one, and that of its
/// profiles, or its grains.
/// @throws EUsage for parameters that are not computed
/// @throws CommonUI::Analysis::ENoPoints when all points are missing
SContent MakeContent(const SInput& input, const SChoices& choices, const SOptions& options);

} // namespace SurfaceReport
