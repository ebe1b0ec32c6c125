#pragma once

#include "measurement/Choices.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/Plan.h"
#include "programs/surface_report/PreferencesFile.h"

#include <iosfwd>

namespace SurfaceReport
{

/// Reports on many files: one table, with a row for each, and a report of each where that is asked for. As
/// many files as there are processors are worked on at a time. A file that fails is a row with the reason. An
/// interruption (SIGINT) ends the run after the files that are being worked on; what is finished is written.
/// @return the exit status: 1 where a file failed or the run was interrupted
int ReportOnMany(const SOptions& options, const SPlan& plan, const CommonUI::Measurement::SChoices& choices,
                 CPreferencesFile& preferences, std::ostream& out, std::ostream& err);

} // namespace SurfaceReport
