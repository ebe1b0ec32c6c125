#pragma once

#include "../../export/Export.h"
#include "../Results.h"
#include "../WriteText.h"

/// @file
/// Results for other programs: keys of parameters, values as they are kept (m, m², m³, degrees, percent)
/// with the shortest digits that give the same numbers back, and a reason for each value there is not. Of
/// more rows than CReportTables::c_mostRows the reasons are not looked up.

namespace CommonUI::Measurement
{

/// A table in which each line is one value, CSV (RFC 4180), UTF-8: see docs/surface-report.md.
COMMONUIMEASUREMENT_API void WriteCsv(const SResults& results, const FWriteText& write);

/// A document of JSON (RFC 8259), UTF-8, with the same.
COMMONUIMEASUREMENT_API void WriteJson(const SResults& results, const FWriteText& write);

} // namespace CommonUI::Measurement
