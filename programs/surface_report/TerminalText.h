#pragma once

#include "measurement/ReportTables.h"

#include <string>

namespace SurfaceReport
{

/// A report as aligned columns for a terminal, UTF-8: the summary, the surface's parameters, and the
/// statistics; the single rows are left to the files.
std::string TerminalText(const CommonUI::Measurement::CReportTables& tables);

} // namespace SurfaceReport
