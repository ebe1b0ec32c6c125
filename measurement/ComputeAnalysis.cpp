#include "measurement/ComputeAnalysis.h"

#include "measurement/ResultSets.h"

#include <utility>

namespace CommonUI::Measurement
{

SChoices ChooseAnalysis(EAnalysis analysis, const CAnalysisPreferencesManager& preferences,
                        const SFurtherOptions& options, SMethod method)
{
    const bool isOfGrains = analysis == EAnalysis::Measure;
    if (isOfGrains && !method.MeasuresGrains())
        throw ERequest(u"", u"grains are measured with a threshold, and none is given");
    if (!isOfGrains) {
        method.grains.reset();
        method.grainSearch.reset();
    }
    method.further.reset();
    if (IsFurther(analysis))
        method.further = SFurtherAnalysis{.analysis = analysis, .options = options};
    SChoices choices = MakeChoices(preferences, {.method = std::move(method), .usesPreferences = true});
    if (analysis == EAnalysis::Roughness)
        choices.rows.clear();
    if (analysis == EAnalysis::RoughnessProfile)
        choices.surface.clear();
    return choices;
}

SResultSet ComputeAnalysis(EAnalysis analysis, const SInput& input,
                           const CAnalysisPreferencesManager& preferences, const SFurtherOptions& options,
                           const SMethod& method)
{
    SChoices choices = ChooseAnalysis(analysis, preferences, options, method);
    if (choices.method.further)
        choices.rows.clear();
    return MakeAnalysisSet(analysis, ComputeResults(input, choices));
}

SResultSet MakeAnalysisSet(EAnalysis analysis, const SResults& results)
{
    const CStr name = CAnalysisPreferencesData::GetININame(analysis);
    const bool hasRows =
        analysis == EAnalysis::Measure || (analysis == EAnalysis::RoughnessProfile && !results.isProfile);
    return hasRows ? MakeRowSet(results, name) : MakeSurfaceSet(results, name);
}

} // namespace CommonUI::Measurement
