#pragma once

#include "programs/surface_report/Options.h"

#include <iosfwd>

namespace SurfaceReport
{

/// Writes the table of what several runs on many files have finished, whose folders are the inputs, in the
/// order in which they are given: the files that one run on all of them would have written.
/// @return the exit status: 1 where a file of one of the runs failed
/// @throws CommandLine::EUsage for runs that do not fit together: with other options, unfinished, or with a
///     file that another one has, too
int MergeRuns(const SOptions& options, std::ostream& out, std::ostream& err);

} // namespace SurfaceReport
