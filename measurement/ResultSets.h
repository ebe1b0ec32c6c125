#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "../output/results/ResultSet.h"
#include "Results.h"

namespace CommonUI::Measurement
{

/// The surface's parameters for a result dialog: one row, or that of the raw surface and that of the
/// processed one, shown with the parameters as rows.
/// @param name see SResultSet
COMMONUIMEASUREMENT_API SResultSet MakeSurfaceSet(const SResults& results, const CStr& name);

/// The rows of profiles or grains with their statistics for a result dialog. All values are kept, computed
/// anew where the results have not kept them; of more rows than CReportTables::c_mostRows the reasons of
/// undefined values are not looked up.
COMMONUIMEASUREMENT_API SResultSet MakeRowSet(const SResults& results, const CStr& name);

} // namespace CommonUI::Measurement
