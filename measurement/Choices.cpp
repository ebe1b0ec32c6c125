#include "measurement/Choices.h"

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/TemplateParameters.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/profile/ProfileParameters.h"
#include "measurement/detail/AddFromTemplate.h"
#include "measurement/detail/AnalysisKey.h"
#include "model/MeasureParameters.h"
#include "model/RoughnessAnalysisPreferencesData.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>
#include <string>
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

// What is asked for by name; nothing where all or those of the preferences are.
struct SNames {
    std::vector<CStr> keys{};
    std::vector<STemplateValues> made{}; // parameters from templates

    bool IsEmpty() const { return keys.empty() && made.empty(); }
    bool Has(const CParameter& parameter) const
    {
        const auto isMade = [&](const STemplateValues& asked) {
            return parameter.HasParent() && asked.key == parameter.GetIniName() &&
                   std::ranges::equal(parameter.GetVariables(), asked.values, {},
                                      &CParameter::GetVariableValue);
        };
        return std::ranges::find(keys, parameter.GetIniName()) != keys.end() ||
               std::ranges::any_of(made, isMade);
    }
};

// Preferences with the sets and the parameters that are asked for by the values of a template.
class CExtended
{
public:
    CExtended(const CAnalysisPreferencesManager& manager, const SRequest& request)
    {
        for (const EAnalysis analysis :
             {EAnalysis::Roughness, EAnalysis::RoughnessProfile, EAnalysis::Measure})
            m_manager.SetData(analysis, manager.GetData(analysis));
        for (const CRoughnessAnalysisPreferencesData& data : request.roughness)
            m_manager.SetData(data.GetAnalysis(), data);
        for (const CStr& key : request.keys) {
            if (key.Find(u'(') == CStr::npos)
                m_names.keys.push_back(key);
            else
                m_names.made.push_back(AddFromTemplate(m_manager, key));
        }
    }

    const CAnalysisPreferencesManager& GetManager() const { return m_manager; }
    const SNames& GetNames() const { return m_names; }

private:
    CAnalysisPreferencesManager m_manager{};
    SNames m_names{};
};

// The parameters of a list that are asked for and computed, or supplied by plug-ins.
// @param all whether it is all that are computed unless keys say which
CList Choose(const CList& list, const SComputed& computed, const SRequest& request, const SNames& names,
             bool all)
{
    CList chosen;
    for (CParameter parameter : list) {
        const bool isComputed = computed.Has(parameter);
        const bool isAsked = names.IsEmpty() ? (all && isComputed) || parameter.IsOn() : names.Has(parameter);
        if (!isAsked || !(isComputed || IsSuppliedByPlugIn(parameter)))
            continue;
        parameter.SetOn(true);
        if (request.unit)
            parameter.SetUnitFactor(*request.unit);
        chosen.push_back(std::move(parameter));
    }
    return chosen;
}

// How a template is asked for: with the defaults of its variables.
CStr ExampleOf(const CStr& key, std::span<const SRoughnessVariable> variables)
{
    CStr example = key;
    for (std::size_t i = 0; i < variables.size(); ++i)
        example += (i == 0 ? u"(" : u",") + CStr::Format(u"%G", variables[i].defaultValue);
    return example + u")";
}

[[noreturn]] void Refuse(const CStr& key)
{
    const auto& roughness = GetRoughnessParametersEnum();
    const auto& grains = GetMeasureParametersEnum();
    const auto found = roughness.FindIniName(key);
    const CStr quoted = u"\"" + key + u"\"";
    if (found == roughness.end() && grains.FindIniName(key) == grains.end())
        throw ERequest(u"", u"there is no parameter " + quoted);
    if (found != roughness.end()) {
        const auto id = static_cast<ERoughnessParameters>(found->GetValue());
        if (const auto variables = GetRoughnessVariables(id); !variables.empty())
            throw ERequest(u"", quoted + u" is a template: it takes values, such as \"" +
                                    ExampleOf(key, variables) + u"\"");
    }
    throw ERequest(u"", quoted + u" is not among the parameters that are computed");
}

void CheckKeys(const SNames& names, const SChoices& choices)
{
    const auto check = [&choices](const CStr& key) {
        const auto hasKey = [&key](const CList& list) {
            return std::ranges::find(list, key, &CParameter::GetIniName) != list.end();
        };
        if (!hasKey(choices.surface) && !hasKey(choices.rows))
            Refuse(key);
    };
    std::ranges::for_each(names.keys, check);
    std::ranges::for_each(names.made, check, &STemplateValues::key);
}

// The preferences of an analysis of valleys.
Analysis::SValleyMethod ValleyMethodOf(const CAnalysisPreferencesData& data)
{
    using enum Analysis::EReferenceLine;
    constexpr Analysis::EReferenceLine c_lines[] = {MeanLine, Regression0, Regression2};
    constexpr double c_ratios[] = {1, 1.5, 2, 3, 4, 5};
    const auto& roughness = dynamic_cast<const CRoughnessAnalysisPreferencesData&>(data);
    return {.line = c_lines[static_cast<std::size_t>(roughness.GetMUFUFilterType())],
            .closingRatio = c_ratios[static_cast<std::size_t>(roughness.GetMUFUClosingCutOffRatio())]};
}

SChoices ChooseGrains(const CExtended& extended, const SRequest& request)
{
    const auto& grains = extended.GetManager().GetData(EAnalysis::Measure);
    return {.rows = Choose(grains.GetParameters(), {.keys = Analysis::GetGrainKeys()}, request,
                           extended.GetNames(), false),
            .statistics = grains.GetStatistics(),
            .automaticRowUnits = !request.usesPreferences && !request.unit};
}

// Whether somebody has said which parameters of a roughness analysis are meant, and in which units.
bool IsChosen(EAnalysis analysis, const SRequest& request)
{
    return request.usesPreferences ||
           std::ranges::find(request.roughness, analysis, &CRoughnessAnalysisPreferencesData::GetAnalysis) !=
               request.roughness.end();
}

SChoices ChooseRoughness(const CExtended& extended, const SRequest& request)
{
    const bool allOfSurface = !IsChosen(EAnalysis::Roughness, request);
    const bool allOfProfiles = !IsChosen(EAnalysis::RoughnessProfile, request);
    const auto& surface = extended.GetManager().GetData(EAnalysis::Roughness);
    const auto& profiles = extended.GetManager().GetData(EAnalysis::RoughnessProfile);
    return {.surface = Choose(surface.GetParameters(),
                              {.keys = KeysOf(Analysis::GetArealQuantities()),
                               .templates = KeysOf(Analysis::GetTemplates())},
                              request, extended.GetNames(), allOfSurface),
            .rows = Choose(profiles.GetParameters(),
                           {.keys = KeysOf(Analysis::GetProfileQuantities()),
                            .templates = KeysOf(Analysis::GetLineTemplates())},
                           request, extended.GetNames(), allOfProfiles),
            .statistics = profiles.GetStatistics(),
            .automaticUnits = allOfSurface && !request.unit,
            .automaticRowUnits = allOfProfiles && !request.unit};
}

// All that the analysis has is computed, of surfaces and of profiles.
SChoices ChooseFurther(const CAnalysisPreferencesManager& manager, const CExtended& extended,
                       const SRequest& request)
{
    const CAnalysisPreferencesData& data = manager.GetData(request.method.further->analysis);
    const CList all = data.GetParameters();
    std::vector<std::string> keys;
    for (const CParameter& parameter : all)
        keys.push_back(AnalysisKey(parameter));
    const bool isChosen = request.usesPreferences;
    const CList chosen =
        Choose(all, {.keys = {keys.begin(), keys.end()}}, request, extended.GetNames(), !isChosen);
    return {.surface = chosen,
            .rows = chosen,
            .statistics = data.GetStatistics(),
            .outputs = data.GetOutputs(),
            .automaticUnits = !isChosen && !request.unit,
            .automaticRowUnits = !isChosen && !request.unit};
}

SChoices ChooseOf(const CAnalysisPreferencesManager& manager, const CExtended& extended,
                  const SRequest& request)
{
    if (request.method.further)
        return ChooseFurther(manager, extended, request);
    return request.method.MeasuresGrains() ? ChooseGrains(extended, request)
                                           : ChooseRoughness(extended, request);
}

} // namespace

SChoices MakeChoices(const CAnalysisPreferencesManager& manager, const SRequest& request)
{
    const CExtended extended(manager, request);
    SChoices choices = ChooseOf(manager, extended, request);
    choices.method = request.method;
    if (auto& further = choices.method.further)
        further->preprocessing = manager.GetData(further->analysis).GetPreprocessingOption();
    choices.method.valleys = ValleyMethodOf(extended.GetManager().GetData(EAnalysis::RoughnessProfile));
    CheckKeys(extended.GetNames(), choices);
    return choices;
}

} // namespace CommonUI::Measurement
