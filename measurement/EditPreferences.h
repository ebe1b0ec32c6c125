#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "../model/AnalysisPreferencesManager.h"

namespace CommonUI::Measurement
{

/// Makes one change:
/// - `Sa=on`, `Sa=off`: a parameter of the analyses, or a statistic, by key
/// - `Fractile=on:95`: a percentile with its value
/// - `Sch=on:95`: a parameter of its own from a template, with the values of its variables, in m or, 0 to
///   100, in percent; `Sch=off` removes them all
/// - `Sq.unit=um`, `Sq.format=Digits:4`, `Decimals:3` or `Integer`: how values are shown, those of parameters
///   made from a template as well
///
/// It applies to every analysis that has the key. Where a key
/// is that of a parameter and of a statistic, `statistic.Count=off` means the statistic.
/// @throws ERequest
COMMONUIMEASUREMENT_API void EditPreferences(CAnalysisPreferencesManager& manager, const CStr& change);

} // namespace CommonUI::Measurement
