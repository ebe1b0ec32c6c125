#pragma once

#include <iosfwd>
#include <span>

namespace SurfaceReport
{

/// The program behind its main function.
/// @param arguments without the program's name
/// @param err receives one line for what is wrong, and the progress of long input
/// @return the exit status: 0, or 1 for a reason that `err` was told; the reports and the
///     preferences are then as they were before, unless it was only the printing that failed
int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err);

} // namespace SurfaceReport
