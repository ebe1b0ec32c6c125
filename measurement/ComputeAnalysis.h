#pragma once

#include "../export/Export.h"
#include "../model/AnalysisPreferencesManager.h"
#include "../output/results/ResultSet.h"
#include "Choices.h"
#include "FurtherAnalysis.h"
#include "Results.h"

namespace CommonUI::Measurement
{

/// The choices of any analysis with the parameters, units, formats, statistics, outputs and preprocessing
/// of its preferences, for ComputeResults or CBackgroundResults.
/// @param method what counts beside them, such as the grains that EAnalysis::Measure asks for; its
/// analysis is
///     replaced
/// @throws ERequest for EAnalysis::Measure without grains in the method
COMMONUIMEASUREMENT_API SChoices ChooseAnalysis(EAnalysis analysis,
                                                const CAnalysisPreferencesManager& preferences,
                                                const SFurtherOptions& options = {}, SMethod method = {});

/// Computes an analysis of a surface with its preferences: a set of one row, or of two where there is a raw
/// surface; for EAnalysis::RoughnessProfile of a surface, and for EAnalysis::Measure, a set with a row for
/// each profile or grain. Its name is that of the analysis (GetININame). Any thread may call, as long as
/// nobody changes the preferences.
/// @param method see ChooseAnalysis
/// @throws ERequest for EAnalysis::Measure without grains in the method, for a cut-off in it that does not
/// fit
/// @throws Analysis::ENoPoints when the roughness is asked for and all points are missing
COMMONUIMEASUREMENT_API SResultSet ComputeAnalysis(EAnalysis analysis, const SInput& input,
                                                   const CAnalysisPreferencesManager& preferences,
                                                   const SFurtherOptions& options = {},
                                                   const SMethod& method = {});

/// The set of results that were computed with the choices of ChooseAnalysis.
COMMONUIMEASUREMENT_API SResultSet MakeAnalysisSet(EAnalysis analysis, const SResults& results);

} // namespace CommonUI::Measurement
