#include "programs/surface_report/Content.h"

#include "analysis/areal/ArealParameters.h"
#include "analysis/areal/TemplateParameters.h"
#include "analysis/grain/GrainMeasures.h"
#include "analysis/numeric/Statistics.h"
#include "analysis/profile/ProfileParameters.h"
#include "model/Enumerations.h"
#include "model/RoughnessCatalogue.h"
#include "output/results/NumberFormat.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace SurfaceReport
{

using namespace CommonUI;
using CommonUI::Analysis::EGrainKind;
using CommonUI::Analysis::ELevelling;
using CommonUI::Analysis::SSurface;
using CommonUI::Analysis::SValue;
using CommonUI::Analysis::SValues;

namespace
{

CStr LevellingText(ELevelling levelling)
{
    switch (levelling) {
    case ELevelling::Mean:
        return u"mean height subtracted";
    case ELevelling::Plane:
        return u"least-squares plane subtracted";
    default:
        return u"none";
    }
}

// A length with the unit that suits it.
CStr LengthText(double metres)
{
    const CUnit unit(CUnit(CUnit::EUnitFactor::Unity).SuitableFactor(metres, 1));
    const double shown = metres / unit.GetFactorValue();
    return FormatParameterValue(shown, CParameter::SFormatSpecifier()) + u" " + unit.GetText();
}

// The texts of the summary that say what was measured.
SContent Describe(const SInput& input, const SOptions& options)
{
    const SSurface& surface = input.surface;
    SContent content{.title = surface.fileName};
    const auto add = [&content](const CStr& label, const CStr& text) {
        content.summary.emplace_back(label, text);
    };
    add(u"File", CStr::FromUtf8(surface.fileName));
    if (!surface.channel.empty())
        add(u"Channel", CStr::FromUtf8(surface.channel));
    add(u"Points", CStr::Format(u"%d × %d", surface.points, surface.lines));
    add(u"Spacing", LengthText(surface.dx) + u" × " + LengthText(surface.dy));
    add(u"Missing points", CStr::Format(u"%d", surface.missing));
    add(u"Levelling", LevellingText(options.levelling));
    for (std::size_t i = 0; i < input.steps.size(); ++i)
        add(CStr::Format(u"Step %d", i + 1), input.steps[i]);
    return content;
}

// The percentile that the statistics ask for, as a share.
double FractileShare(const std::vector<CParameter>& statistics)
{
    const auto found =
        std::ranges::find(statistics, static_cast<int>(EStatistics::Fractile), &CParameter::GetValue);
    return found == statistics.end() ? 0.5 : found->GetVariableValue() / 100;
}

// The key by which the analysis knows a parameter: that of its template where it is made from one.
std::string AnalysisKey(const CParameter& parameter)
{
    return parameter.HasParent() ? GetRoughnessParametersEnum().GetIniName(parameter.GetBaseValue()).ToUtf8()
                                 : parameter.GetIniName().ToUtf8();
}

std::vector<double> VariableValues(const CParameter& parameter)
{
    std::vector<double> values;
    for (const CParameter& variable : parameter.GetVariables())
        values.push_back(variable.GetVariableValue());
    return values;
}

// The keys by which the analysis knows the parameters that are on.
std::vector<std::string> KeysOf(const std::vector<CParameter>& parameters)
{
    std::vector<std::string> keys;
    for (const CParameter& parameter : parameters) {
        if (parameter.IsOn())
            keys.push_back(AnalysisKey(parameter));
    }
    return keys;
}

std::vector<std::string_view> ViewsOf(const std::vector<std::string>& keys)
{
    return {keys.begin(), keys.end()};
}

// Computes the parameters of a surface that the choices show.
class CArealValues
{
public:
    CArealValues(const SSurface& surface, const SChoices& choices)
        : m_surface(surface)
        , m_values(CommonUI::Analysis::ComputeAreal(surface, ViewsOf(KeysOf(choices.surface))))
    {
    }

    // Appends the value of a parameter that is computed.
    void AppendTo(std::vector<double>& values, const CParameter& parameter) const
    {
        const std::string key = AnalysisKey(parameter);
        const auto found = std::ranges::find(m_values, key, &SValue::key);
        if (parameter.HasParent())
            values.push_back(CommonUI::Analysis::ComputeTemplate(m_surface, key, VariableValues(parameter)));
        else if (found != m_values.end())
            values.push_back(found->value);
    }

private:
    const SSurface& m_surface;
    std::vector<SValue> m_values;
};

SContent RoughnessContent(const SInput& input, const SChoices& choices, const SOptions& options)
{
    const SSurface& surface = input.surface;
    SContent content = Describe(input, options);
    std::vector<CArealValues> areal;
    if (input.raw)
        areal.emplace_back(*input.raw, choices);
    areal.emplace_back(surface, choices);
    const std::vector<SValues> profiles =
        CommonUI::Analysis::ComputeProfiles(surface, ViewsOf(KeysOf(choices.profiles)), options.cutoff);
    const auto ofSurface = [&areal](const CParameter& parameter) {
        std::vector<double> values;
        for (const CArealValues& surfaceValues : areal)
            surfaceValues.AppendTo(values, parameter);
        return values;
    };
    const auto ofProfiles = [&](const CParameter& parameter) -> std::vector<double> {
        const std::string key = AnalysisKey(parameter);
        if (parameter.HasParent())
            return CommonUI::Analysis::ComputeLineTemplates(surface, key, VariableValues(parameter),
                                                            options.cutoff);
        const auto found = std::ranges::find(profiles, key, &SValues::key);
        return found == profiles.end() ? std::vector<double>() : found->values;
    };
    content.surface = MakeColumns(choices.surface, ofSurface, options, choices.automaticUnits);
    content.rowName = u"Profile";
    content.columns = MakeColumns(choices.profiles, ofProfiles, options, choices.automaticUnits);
    content.statistics = choices.profileStatistics;
    content.compute = [share = FractileShare(content.statistics)](const SColumn& column) {
        return CommonUI::Analysis::ComputeStatistics(column.values, share);
    };
    return content;
}

SContent GrainContent(const SInput& input, const SChoices& choices, const SOptions& options)
{
    const SGrainOptions& asked = *options.grains;
    const bool pores = asked.kind == EGrainKind::Pore;
    const auto grains = std::make_shared<CommonUI::Analysis::SGrains>(CommonUI::Analysis::MeasureGrains(
        input.surface, asked.threshold, asked.kind, ViewsOf(KeysOf(choices.grains))));
    const auto valuesOf = [&](const CParameter& parameter) -> std::vector<double> {
        const auto found = std::ranges::find(grains->columns, parameter.GetIniName().ToUtf8(), &SValues::key);
        return found == grains->columns.end() ? std::vector<double>() : found->values;
    };
    SContent content = Describe(input, options);
    const auto& items = GetMeasureSummaryItemsEnum();
    const auto label = [&items](EMeasureSummaryItems item) {
        return items.GetFriendlyString(static_cast<int>(item));
    };
    const CParameter::SFormatSpecifier format;
    content.summary.emplace_back(label(EMeasureSummaryItems::GrainSettings),
                                 (pores ? u"pores below " : u"particles from ") +
                                     LengthText(asked.threshold));
    content.summary.emplace_back(label(EMeasureSummaryItems::SegmentCount),
                                 CStr::Format(u"%d", grains->count));
    content.summary.emplace_back(label(EMeasureSummaryItems::Coverage),
                                 FormatParameterValue(grains->coverage, format) + u" %");
    content.rowName = pores ? u"Pore" : u"Particle";
    content.columns = MakeColumns(choices.grains, valuesOf, options, choices.automaticUnits);
    content.statistics = choices.grainStatistics;
    content.compute = [grains, share = FractileShare(content.statistics)](const SColumn& column) {
        return CommonUI::Analysis::ComputeGrainStatistics(*grains, {.values = column.values}, share);
    };
    return content;
}

} // namespace

SContent MakeContent(const SInput& input, const SChoices& choices, const SOptions& options)
{
    SContent content =
        options.grains ? GrainContent(input, choices, options) : RoughnessContent(input, choices, options);
    CheckKeys(options, {&content.surface, &content.columns});
    return content;
}

} // namespace SurfaceReport
