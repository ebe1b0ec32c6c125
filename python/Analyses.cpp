#include "common/Unit.h"
#include "measurement/ApplySteps.h"
#include "measurement/Choices.h"
#include "measurement/GrainLimit.h"
#include "measurement/Steps.h"
#include "model/Enumerations.h"
#include "python/Bindings.h"
#include "python/Lengths.h"
#include "python/Preferences.h"
#include "python/Results.h"
#include "python/Surface.h"

#include <pybind11/stl.h>

#include <cmath>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

namespace Python
{

namespace Analysis = CommonUI::Analysis;
namespace Measurement = CommonUI::Measurement;
using CommonUI::CStr;
using Measurement::ERequest;

namespace
{

// What a script asks for, as it was given.
struct SAsked {
    std::vector<CStr> settings;
    std::string level;
    std::vector<CStr> parameters;
    std::optional<CStr> unit;
    std::optional<CLength> cutoff;
    std::optional<CLengths> motifLimits;
    std::optional<CLength> grains; // or the text that names a threshold set
    std::optional<CLength> pores;
    std::optional<std::string> analysis;
    std::optional<CLengths> reference;
    SScriptSurface* second;
    std::string pitch;
    std::optional<CLength> tip; // or what the depth is called
    CLength tipNoise;
};

// The second limit is five times the first without it, as in the table of the standard.
Analysis::SMotifLimits MotifLimitsOf(const CLengths& given)
{
    constexpr double c_ratio = 5;
    const auto [roughness, waviness] = PositivesOf("motif_limits", given);
    const Analysis::SMotifLimits limits{roughness, waviness.value_or(c_ratio * roughness)};
    if (limits.waviness < limits.roughness)
        throw std::invalid_argument("motif_limits: the second length is shorter than the first");
    return limits;
}

CommonUI::CUnit::EUnitFactor UnitOf(const CStr& text)
{
    CommonUI::CUnit unit;
    if (!CommonUI::CUnit::ParseLength(text, unit))
        throw ERequest(u"unit", u"\"" + text + u"\" is no unit of length");
    return unit.GetFactor();
}

// A width, or a depth by the name that preferences have for it without "tea".
void TakeTip(const SAsked& asked, Measurement::SFurtherOptions& options)
{
    options.tipNoise = LengthOf("tip_noise", asked.tipNoise);
    if (!asked.tip)
        return;
    const auto* const name = std::get_if<CStr>(&*asked.tip);
    const auto& areas = CommonUI::GetTipEstimationAreaEnum();
    const auto found = name ? areas.FindIniName(u"tea" + *name) : areas.end();
    options.tipArea = CommonUI::ETipEstimationArea::Width;
    if (found != areas.end() && found->GetValue() != static_cast<int>(options.tipArea))
        options.tipArea = static_cast<CommonUI::ETipEstimationArea>(found->GetValue());
    else
        options.tipWidth = PositiveOf("tip", *asked.tip);
}

Measurement::SFurtherAnalysis FurtherOf(const SAsked& asked)
{
    Measurement::SFurtherAnalysis further{.analysis = AnalysisOf(*asked.analysis)};
    if (!Measurement::IsFurther(further.analysis))
        throw std::invalid_argument("analysis: \"" + *asked.analysis + "\" is what is done without it");
    if (asked.pitch != "fourier" && asked.pitch != "centroid")
        throw std::invalid_argument("pitch: fourier, centroid expected, not \"" + asked.pitch + "\"");
    if (asked.pitch == "centroid")
        further.options.pitchMethod = Measurement::EPitchMethod::Centroid;
    if (asked.reference)
        std::tie(further.options.reference, further.options.referenceY) =
            PositivesOf("reference", *asked.reference);
    if (further.analysis == CommonUI::EAnalysis::CrossCorrelation && !asked.second)
        throw std::invalid_argument("second: CrossCorrelation takes a surface to compare with");
    TakeTip(asked, further.options);
    return further;
}

// What only another analysis would look at is refused rather than forgotten.
void CheckApart(const SAsked& asked)
{
    if (asked.grains && asked.pores)
        throw std::invalid_argument("either grains or pores are measured");
    if (asked.analysis && (asked.grains || asked.pores || asked.cutoff || asked.motifLimits))
        throw std::invalid_argument("grains, pores, cutoff and motif_limits have no effect beside analysis");
    if (!asked.analysis && (asked.reference || asked.second || asked.tip))
        throw std::invalid_argument("reference, second and tip are for an analysis, which is not given");
}

Measurement::SMethod MethodOf(const SAsked& asked, CommonUI::CSettingsFactory& factory)
{
    CheckApart(asked);
    Measurement::SMethod method{.levelling = LevellingOf(asked.level)};
    if (asked.cutoff)
        method.cutoff = PositiveOf("cutoff", *asked.cutoff);
    if (asked.motifLimits)
        method.motifLimits = MotifLimitsOf(*asked.motifLimits);
    const auto* const set = asked.grains ? std::get_if<CStr>(&*asked.grains) : nullptr;
    if (set && set->Find(u'[') != CStr::npos)
        method.grainSearch = Measurement::LoadGrainSearch(factory, *set);
    else if (asked.grains)
        method.grains = {LengthOf("grains", *asked.grains), Analysis::EGrainKind::Particle};
    if (asked.pores)
        method.grains = {LengthOf("pores", *asked.pores), Analysis::EGrainKind::Pore};
    if (asked.analysis)
        method.further = FurtherOf(asked);
    return method;
}

void CheckSets(const Measurement::SSets& sets, bool isRoughness)
{
    if (sets.report)
        throw ERequest(sets.report->name,
                       u"a report template lays out documents and has no effect on results");
    if (!sets.roughness.empty() && !isRoughness)
        throw ERequest(sets.roughness.front().userSpec, u"it says nothing of what is analysed instead");
}

Measurement::SChoices ChoicesOf(const SAsked& asked, const Measurement::SSets& sets,
                                Measurement::SMethod method, const CScriptPreferences* preferences)
{
    CheckSets(sets, !method.MeasuresGrains() && !method.further);
    Measurement::SRequest request{
        .method = std::move(method), .usesPreferences = preferences != nullptr, .keys = asked.parameters};
    if (asked.unit)
        request.unit = UnitOf(*asked.unit);
    for (const Measurement::SRoughnessSet& set : sets.roughness)
        request.roughness.push_back(set.data);
    const CommonUI::CAnalysisPreferencesManager defaults;
    return MakeChoices(preferences ? preferences->GetManager() : defaults, request);
}

void AddNotes(const Measurement::SSets& sets, const Measurement::SMethod& method, Measurement::SInput& input)
{
    for (const Measurement::SRoughnessSet& set : sets.roughness)
        input.notes.emplace_back(u"Settings", set.name);
    if (method.grainSearch)
        input.notes.emplace_back(u"Settings", method.grainSearch->name);
}

// Sets are read and choices made under Python's lock, as preferences and diagnostics are one thread's;
// what takes long has copies of the surfaces, which other threads of the script may change meanwhile.
CScriptResults Analyse(SScriptSurface& script, const SAsked& asked, CScriptPreferences* preferences)
{
    CommonUI::CSettingsFactory ownFactory;
    CommonUI::CSettingsFactory& factory = preferences ? preferences->GetFactory() : ownFactory;
    const Measurement::SSets sets = Measurement::LoadSets(factory, asked.settings);
    Measurement::SChoices choices = ChoicesOf(asked, sets, MethodOf(asked, factory), preferences);
    Analysis::SSurface surface = Checked(script);
    if (surface.IsProfile() && choices.rows.empty() && !asked.parameters.empty())
        throw ERequest(u"parameters", u"the surface is a profile, and none of these is one of profiles");
    const std::string sha256 = script.sha256;
    std::optional<Analysis::SSurface> second;
    if (asked.second)
        second = Checked(*asked.second);

    const py::gil_scoped_release unlocked;
    if (second)
        choices.method.further->options.second = std::make_shared<const Analysis::SSurface>(
            Process(std::move(*second), choices.method.levelling, sets.steps).surface);
    Measurement::SInput input = Process(std::move(surface), choices.method.levelling, sets.steps);
    AddNotes(sets, choices.method, input);
    input.sha256 = sha256;
    return {std::move(input), choices};
}

SScriptSurface Apply(SScriptSurface& script, const std::vector<CStr>& settings, const std::string& level,
                     CScriptPreferences* preferences)
{
    CommonUI::CSettingsFactory ownFactory;
    const Measurement::SSets sets =
        Measurement::LoadSets(preferences ? preferences->GetFactory() : ownFactory, settings);
    if (!sets.roughness.empty())
        throw ERequest(sets.roughness.front().userSpec, u"only plane corrections and filters can be applied");
    CheckSets(sets, true);
    const Analysis::ELevelling levelling = LevellingOf(level);
    Analysis::SSurface surface = Checked(script);
    const std::string sha256 = script.sha256;
    const py::gil_scoped_release unlocked;
    return {Process(std::move(surface), levelling, sets.steps).surface, sha256};
}

} // namespace

void AddAnalyses(py::module_& module)
{
    module.def("apply", &Apply, py::arg("surface"), py::arg("settings") = std::vector<CStr>(), py::kw_only(),
               py::arg("level") = "none", py::arg("preferences") = py::none(),
               "A new surface to which plane corrections and filters are applied in their order.\n\n"
               "settings: texts such as 'PlaneCorr[Id(4)]' and 'Filter[File(x.flt)]'\n"
               "level: what is subtracted first: none, the mean height, or the least-squares plane\n"
               "preferences: which remember the sets as used recently\n"
               "Raises RequestError, and UnknownSetError for a set that does not exist.");
    module.def(
        "analyse",
        [](SScriptSurface& surface, std::vector<CStr> settings, std::string level,
           std::vector<CStr> parameters, std::optional<CStr> unit, CScriptPreferences* preferences,
           std::optional<CLength> cutoff, std::optional<CLengths> motifLimits, std::optional<CLength> grains,
           std::optional<CLength> pores, std::optional<std::string> analysis,
           std::optional<CLengths> reference, SScriptSurface* second, std::string pitch,
           std::optional<CLength> tip, CLength tipNoise) {
            const SAsked asked{std::move(settings),
                               std::move(level),
                               std::move(parameters),
                               std::move(unit),
                               std::move(cutoff),
                               std::move(motifLimits),
                               std::move(grains),
                               std::move(pores),
                               std::move(analysis),
                               std::move(reference),
                               second,
                               std::move(pitch),
                               std::move(tip),
                               std::move(tipNoise)};
            return Analyse(surface, asked, preferences);
        },
        py::arg("surface"), py::arg("settings") = std::vector<CStr>(), py::kw_only(),
        py::arg("level") = "none", py::arg("parameters") = std::vector<CStr>(), py::arg("unit") = py::none(),
        py::arg("preferences") = py::none(), py::arg("cutoff") = py::none(),
        py::arg("motif_limits") = py::none(), py::arg("grains") = py::none(), py::arg("pores") = py::none(),
        py::arg("analysis") = py::none(), py::arg("reference") = py::none(), py::arg("second") = py::none(),
        py::arg("pitch") = "fourier", py::arg("tip") = py::none(), py::arg("tip_noise") = 0.0,
        "Analyses a surface: its roughness and that of its profiles, or its grains, or what `analysis` "
        "says.\n\n"
        "settings, level: what is applied first, see apply; of a roughness set the parameters are shown\n"
        "parameters: keys such as 'Sa', '4287Ra', 'Smc(10)'; the usual ones without it\n"
        "unit: in which tables show lengths: pm, nm, um, mm, m ...\n"
        "preferences: say what is computed and how it is shown\n"
        "cutoff: of the profile filter; a fifth of the profile without it\n"
        "motif_limits: widest motifs of roughness and waviness, or the first alone\n"
        "grains: measures the particles at or above a height, or what a set such as 'PnP[Id(198)]' says\n"
        "pores: measures the pores below a height\n"
        "analysis: one of ANALYSES, such as 'ZCalibration', with reference (or one along x and one along y), "
        "a second surface, pitch 'fourier' or 'centroid', tip (a width, or 'Depth50') and tip_noise\n"
        "Lengths are numbers in m or texts such as '2.5um'.\n"
        "Raises RequestError, NoPointsError.");
}

} // namespace Python
