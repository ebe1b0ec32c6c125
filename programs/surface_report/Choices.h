#pragma once

#include "programs/surface_report/Options.h"

#include "model/AnalysisPreferencesManager.h"
#include "model/Parameter.h"

#include <vector>

namespace SurfaceReport
{

/// What a report shows: parameters and statistics in the order in which they are shown, of which those count
/// that are on.
struct SChoices {
    std::vector<CommonUI::CParameter> surface;
    std::vector<CommonUI::CParameter> profiles;
    std::vector<CommonUI::CParameter> profileStatistics;
    std::vector<CommonUI::CParameter> grains;
    std::vector<CommonUI::CParameter> grainStatistics;
    bool automaticUnits = true; ///< each parameter is shown in the unit that suits it
};

/// The choices of the preferences, or without such all parameters of surfaces and profiles and the usual ones
/// of grains; as far as the options name parameters, those are on and no others.
SChoices MakeChoices(const CommonUI::CAnalysisPreferencesManager& manager, const SOptions& options);

} // namespace SurfaceReport
