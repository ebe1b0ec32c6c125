#include "programs/surface_report/Choices.h"

#include <algorithm>

namespace SurfaceReport
{

using namespace CommonUI;
using CList = std::vector<CParameter>;

namespace
{

void SwitchAllOn(CList& list)
{
    for (CParameter& parameter : list)
        parameter.SetOn(!parameter.IsTemplate());
}

// Leaves on what the options name, parameters made from a named template included.
void SwitchOnNamed(CList& list, const SOptions& options)
{
    for (CParameter& parameter : list) {
        const bool named = std::ranges::find(options.parameters, parameter.GetIniName().ToUtf8()) !=
                           options.parameters.end();
        parameter.SetOn(named && !parameter.IsTemplate());
    }
}

} // namespace

SChoices MakeChoices(const CAnalysisPreferencesManager& manager, const SOptions& options)
{
    const bool hasPreferences = !options.preferences.empty();
    const auto& surface = manager.GetData(EAnalysis::Roughness);
    const auto& profiles = manager.GetData(EAnalysis::RoughnessProfile);
    const auto& grains = manager.GetData(EAnalysis::Measure);
    SChoices choices{.surface = surface.GetParameters(),
                     .profiles = profiles.GetParameters(),
                     .profileStatistics = profiles.GetStatistics(),
                     .grains = grains.GetParameters(),
                     .grainStatistics = grains.GetStatistics(),
                     .automaticUnits = !hasPreferences};
    if (!hasPreferences) {
        SwitchAllOn(choices.surface);
        SwitchAllOn(choices.profiles);
    }
    if (!options.parameters.empty()) {
        for (CList* list : {&choices.surface, &choices.profiles, &choices.grains})
            SwitchOnNamed(*list, options);
    }
    return choices;
}

} // namespace SurfaceReport
