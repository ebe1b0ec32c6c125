#pragma once

#include "../export/Export.h"
#include "../model/AnalysisPreferencesManager.h"
#include "../model/Parameter.h"
#include "Request.h"

#include <vector>

namespace CommonUI::Measurement
{

/// What is computed and shown. All parameters are on, at the unit factor that was asked for, and in the order
/// in which they are shown. Those that plug-ins supply are shown without values.
struct SChoices {
    SMethod method{};                  ///< how the surface is analysed
    std::vector<CParameter> surface{}; ///< of the surface; none where grains are measured
    std::vector<CParameter> rows{};    ///< of its profiles or its grains; those of a further analysis twice
    std::vector<CParameter> statistics{}; ///< of these, of which those count that are on
    std::vector<CParameter> outputs{};    ///< of a further analysis, likewise
    bool automaticUnits = true;    ///< each parameter of the surface is shown in the unit that suits it
    bool automaticRowUnits = true; ///< likewise those of the rows
};

/// @throws ERequest for a key that no parameter has or of which nothing is computed, such as that of a
///     template without values, for which the message says so
COMMONUIMEASUREMENT_API SChoices MakeChoices(const CAnalysisPreferencesManager& manager,
                                             const SRequest& request);

} // namespace CommonUI::Measurement
