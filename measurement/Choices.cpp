#include "measurement/Choices.h"

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/TemplateParameters.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/profile/ProfileParameters.h"
#include "measurement/detail/AnalysisKey.h"
#include "model/MeasureParameters.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>
#include <ranges>
#include <string_view>

namespace CommonUI::Measurement
{

using CList = std::vector<CParameter>;

namespace
{

// What the analysis computes of a kind of thing.
struct SComputed {
    std::vector<std::string_view> keys;
    std::vector<std::string_view> templates{};

    bool Has(const CParameter& parameter) const
    {
        return Analysis::IsAmong(AnalysisKey(parameter), parameter.HasParent() ? templates : keys);
    }
};

std::vector<std::string_view> KeysOf(const std::vector<Analysis::SQuantity>& quantities)
{
    std::vector<std::string_view> keys(quantities.size());
    std::ranges::transform(quantities, keys.begin(), &Analysis::SQuantity::key);
    return keys;
}

// The parameters of a list that are asked for and computed.
// @param all whether it is all of them unless keys say which
CList Choose(const CList& list, const SComputed& computed, const SRequest& request, bool all)
{
    CList chosen;
    for (CParameter parameter : list) {
        const bool isNamed = std::ranges::find(request.keys, parameter.GetIniName()) != request.keys.end();
        const bool isAsked = request.keys.empty() ? all || parameter.IsOn() : isNamed;
        if (!isAsked || !computed.Has(parameter))
            continue;
        parameter.SetOn(true);
        if (request.unit)
            parameter.SetUnitFactor(*request.unit);
        chosen.push_back(std::move(parameter));
    }
    return chosen;
}

void CheckKeys(const SRequest& request, const SChoices& choices)
{
    for (const CStr& key : request.keys) {
        const auto hasKey = [&key](const CList& list) {
            return std::ranges::find(list, key, &CParameter::GetIniName) != list.end();
        };
        if (hasKey(choices.surface) || hasKey(choices.rows))
            continue;
        const auto& roughness = GetRoughnessParametersEnum();
        const auto& grains = GetMeasureParametersEnum();
        if (roughness.FindIniName(key) == roughness.end() && grains.FindIniName(key) == grains.end())
            throw ERequest(u"", u"there is no parameter \"" + key + u"\"");
        throw ERequest(u"", u"\"" + key + u"\" is not among the parameters that are computed");
    }
}

SChoices ChooseGrains(const CAnalysisPreferencesManager& manager, const SRequest& request)
{
    const auto& grains = manager.GetData(EAnalysis::Measure);
    return {.rows = Choose(grains.GetParameters(), {.keys = Analysis::GetGrainKeys()}, request, false),
            .statistics = grains.GetStatistics(),
            .automaticRowUnits = !request.usesPreferences && !request.unit};
}

// The preferences of a roughness analysis that count.
struct SCounting {
    const CAnalysisPreferencesData& data;
    bool isChosen; // by somebody: its parameters, units and formats are meant
};

SCounting FindCounting(EAnalysis analysis, const CAnalysisPreferencesManager& manager,
                       const SRequest& request)
{
    for (const auto& data : std::views::reverse(request.roughness)) {
        if (data.GetAnalysis() == analysis)
            return {data, true};
    }
    return {manager.GetData(analysis), request.usesPreferences};
}

SChoices ChooseRoughness(const CAnalysisPreferencesManager& manager, const SRequest& request)
{
    const SCounting surface = FindCounting(EAnalysis::Roughness, manager, request);
    const SCounting profiles = FindCounting(EAnalysis::RoughnessProfile, manager, request);
    return {.surface = Choose(surface.data.GetParameters(),
                              {.keys = KeysOf(Analysis::GetArealQuantities()),
                               .templates = KeysOf(Analysis::GetTemplates())},
                              request, !surface.isChosen),
            .rows = Choose(profiles.data.GetParameters(),
                           {.keys = KeysOf(Analysis::GetProfileQuantities()),
                            .templates = KeysOf(Analysis::GetLineTemplates())},
                           request, !profiles.isChosen),
            .statistics = profiles.data.GetStatistics(),
            .automaticUnits = !surface.isChosen && !request.unit,
            .automaticRowUnits = !profiles.isChosen && !request.unit};
}

} // namespace

SChoices MakeChoices(const CAnalysisPreferencesManager& manager, const SRequest& request)
{
    SChoices choices =
        request.method.MeasuresGrains() ? ChooseGrains(manager, request) : ChooseRoughness(manager, request);
    choices.method = request.method;
    CheckKeys(request, choices);
    return choices;
}

} // namespace CommonUI::Measurement
