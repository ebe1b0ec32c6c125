#pragma once

#include "analysis/surface/Surface.h"
#include "programs/surface_report/Options.h"

#include <string>

namespace SurfaceReport
{

/// Looks into what can be said of --save and its companions before anything is read.
/// @throws CommandLine::EUsage where the name stands for no format, or is that of another file of the run
void CheckSave(const SOptions& options);

/// The bytes of the file that --save names.
/// @throws CommandLine::EUsage where the surface does not fit the format
std::string SavedBytes(const CommonUI::Analysis::SSurface& surface, const SOptions& options);

} // namespace SurfaceReport
