#pragma once

#include "../export/Export.h"
#include "../model/AnalysisPreferencesManager.h"
#include "../model/Parameter.h"
#include "Request.h"

#include <vector>

namespace CommonUI::Measurement
{

/// What is computed and shown. All parameters are on, computed by the analysis, at the unit factor that was
/// asked for, and in the order in which they are shown.
struct SChoices {
    SMethod method{};
    std::vector<CParameter> surface{};     ///< of the surface; none where grains are measured
    std::vector<CParameter> rows{};        ///< of its profiles or its grains
    std::vector<CParameter> statistics{};  ///< of these, of which those count that are on
    std::vector<CParameter> fromPlugIns{}; ///< asked for, but supplied by plug-ins: not among the others
    bool automaticUnits = true;    ///< each parameter of the surface is shown in the unit that suits it
    bool automaticRowUnits = true; ///< likewise those of the rows
};

/// @throws ERequest for a key that no parameter has or of which nothing is computed: that of a template
///     without values, or of what plug-ins supply, for which the message says so
COMMONUIMEASUREMENT_API SChoices MakeChoices(const CAnalysisPreferencesManager& manager,
                                             const SRequest& request);

} // namespace CommonUI::Measurement
