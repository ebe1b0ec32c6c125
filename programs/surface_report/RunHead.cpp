#include "programs/surface_report/RunHead.h"

#include "common/NumberText.h"
#include "common/Version.h"
#include "measurement/Columns.h"
#include "measurement/Origin.h"
#include "model/AnalysisPreferencesManager.h"
#include "model/Enumerations.h"
#include "model/RoughnessCatalogue.h"
#include "programs/surface_report/RunState.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <variant>

namespace SurfaceReport
{

namespace Measurement = CommonUI::Measurement;
using CommonUI::CParameter;
using CommonUI::CStr;
using CommonUI::CUnit;

namespace
{

constexpr const char* c_automatic = "automatic units";
constexpr const char* c_chosen = "chosen units";
constexpr std::string_view c_plugIn = " plug-in ";

std::string HashFile(const CStr& path)
{
    return std::to_string(TakeFingerprint(std::filesystem::path(std::u16string(path.View()))).hash);
}

// A settings set as it was named, and the content of one that is a file.
std::string DescribeSet(const char* option, const CStr& spec)
{
    std::string text = option + (" " + spec.ToUtf8());
    const std::size_t begin = spec.Find(u"[File(");
    if (begin != CStr::npos) {
        const CStr path = spec.Mid(begin + 6, spec.GetLength() - begin - 8);
        text += " " + HashFile(path);
    }
    return text;
}

// The contents of the files behind the steps of a batch sequence.
void DescribeSteps(const Measurement::SBatch& batch, std::vector<std::string>& key)
{
    for (const Measurement::SBatchWork& step : batch.steps) {
        if (!step.file.IsEmpty() && !std::holds_alternative<Measurement::SBatchUseless>(step.work))
            key.push_back("set " + step.name.ToUtf8() + " " + HashFile(step.file));
    }
}

// "Nano 1 5": the unit factor, the kind of number format and its count.
std::string DescribeShown(const CParameter& parameter)
{
    const CParameter::SFormatSpecifier format = parameter.GetFloatFormat();
    const CStr unit = CUnit::GetUnitFactorEnum().GetIniName(static_cast<int>(parameter.GetUnitFactor()));
    std::string shown = unit.ToUtf8() + " " + std::to_string(static_cast<int>(format.type)) + " " +
                        std::to_string(format.count);
    if (!IsSuppliedByPlugIn(parameter))
        return shown;
    return shown + std::string(c_plugIn) + std::to_string(static_cast<int>(parameter.GetDimension())) + " " +
           parameter.GetShortFriendlyString().ToUtf8();
}

// "Mean 0": the key and the value that belongs to it.
std::string DescribeStatistic(const CParameter& statistic)
{
    return statistic.GetIniName().ToUtf8() + " " +
           CommonUI::ShortestText(statistic.GetVariableValue()).ToUtf8();
}

std::vector<SRunFact> FactsOf(const SPlan& plan, const Measurement::SChoices& choices)
{
    std::vector<SRunFact> facts{
        {"version", "CommonUI version", CommonUI::GetVersion().ToUtf8()},
        {"levelling", "Levelling", Measurement::DescribeLevelling(choices.method.levelling).ToUtf8()}};
    if (const auto& further = choices.method.further)
        facts.push_back({"analysis", "Analysis",
                         CommonUI::CAnalysisPreferencesData::GetFriendlyName(further->analysis).ToUtf8()});
    bool hasEnds = false;
    int number = 0;
    const auto addStep = [&](const CStr& name, const Measurement::SStep* step) {
        const std::string text = std::to_string(++number);
        facts.push_back({"step " + text, "Step " + text, name.ToUtf8()});
        hasEnds = hasEnds || (step && IsGaussian(*step));
    };
    for (const Measurement::SStep& step : plan.sets.steps)
        addStep(step.name, &step);
    if (plan.batch) {
        for (const Measurement::SBatchWork& step : plan.batch->steps)
            addStep(step.name, std::get_if<Measurement::SStep>(&step.work));
    }
    for (const Measurement::SRoughnessSet& set : plan.sets.roughness)
        facts.push_back({"settings", "Settings", set.name.ToUtf8()});
    if (hasEnds)
        facts.push_back({"ends", "Filter ends", CStr(Measurement::c_endTreatment).ToUtf8()});
    return facts;
}

// How the values are shown, and the analysis that is done instead of the roughness where there is one.
std::string DescribeChoice(const Measurement::SChoices& choices)
{
    const std::string units(choices.automaticUnits ? c_automatic : c_chosen);
    const auto& further = choices.method.further;
    return further ? units + ", " + CommonUI::CAnalysisPreferencesData::GetININame(further->analysis).ToUtf8()
                   : units;
}

std::optional<Measurement::SFurtherAnalysis> ReadAnalysis(const std::string& choice)
{
    const std::size_t comma = choice.find(", ");
    for (int number = 0; number < 10 && comma != choice.npos; ++number) {
        const CommonUI::EAnalysis analysis{number};
        if (CommonUI::CAnalysisPreferencesData::GetININame(analysis).ToUtf8() == choice.substr(comma + 2))
            return Measurement::SFurtherAnalysis{.analysis = analysis};
    }
    return {};
}

// What the values of an analysis depend on.
std::string DescribeAnalysis(const Measurement::SFurtherAnalysis& further, const SOptions& options)
{
    const Measurement::SFurtherOptions& asked = further.options;
    std::ostringstream text;
    text << std::hexfloat << "analysis " << static_cast<int>(further.analysis) << ' '
         << static_cast<int>(further.preprocessing) << ' ' << asked.reference.value_or(0) << ' '
         << asked.referenceY.value_or(0) << ' ' << static_cast<int>(asked.pitchMethod) << ' '
         << static_cast<int>(asked.tipArea) << ' ' << asked.tipWidth << ' ' << asked.tipNoise;
    if (!options.second.empty())
        text << ' ' << HashFile(options.second.u16string());
    return text.str();
}

[[noreturn]] void FailOn(const std::string& text)
{
    throw std::runtime_error("\"" + text + "\" is nothing that a run writes");
}

// Whether what is said of a column is of a parameter that plug-ins supply, which no catalogue has: its
// dimension and its symbol stand behind the rest.
std::optional<CParameter> ReadPlugIn(const std::string& key, const std::string& shown)
{
    const std::size_t begin = shown.find(c_plugIn);
    if (begin == shown.npos)
        return std::nullopt;
    std::istringstream stream(shown.substr(begin + c_plugIn.size()));
    int dimension = 0;
    std::string symbol;
    if (!std::getline(stream >> dimension >> std::ws, symbol) ||
        std::clamp(dimension, 0, static_cast<int>(CParameter::EDimension::Percent)) != dimension)
        FailOn(shown);
    const CStr name = CStr::FromUtf8(symbol);
    constexpr int c_standard = static_cast<int>(CommonUI::EAnalysisStandards::RoughnessPlugIns);
    return CParameter(0, CStr::FromUtf8(key), name, name, c_standard, true,
                      static_cast<CParameter::EDimension>(dimension));
}

void TakeShown(const std::string& text, CParameter& parameter)
{
    std::istringstream stream(text);
    std::string unit;
    int type = 0;
    CParameter::SFormatSpecifier format;
    if (!(stream >> unit >> type >> format.count))
        FailOn(text);
    format.type = static_cast<CParameter::EFormatSpecifier>(type);
    parameter.SetFloatFormat(format);
    parameter.SetUnitFactor(CUnit::GetUnitFactorEnum().GetValue(CStr::FromUtf8(unit)));
}

CParameter ReadStatistic(const std::string& text, const std::vector<CParameter>& known)
{
    const std::size_t blank = std::min(text.find(' '), text.size());
    const auto found =
        std::ranges::find(known, CStr::FromUtf8(text.substr(0, blank)), &CParameter::GetIniName);
    double value = 0;
    if (found == known.end() || !CommonUI::ParseDouble(CStr::FromUtf8(text.substr(blank)), value))
        FailOn(text);
    CParameter statistic = *found;
    statistic.SetVariableValue(value);
    statistic.SetOn(true);
    return statistic;
}

} // namespace

SRunHead MakeRunHead(const SOptions& options, const SPlan& plan, const Measurement::SChoices& choices)
{
    SRunHead head{.key = {"version " + CommonUI::GetVersion().ToUtf8(),
                          "levelling " + Measurement::DescribeLevelling(choices.method.levelling).ToUtf8()},
                  .shown = {DescribeChoice(choices)},
                  .facts = FactsOf(plan, choices)};
    if (const auto& further = choices.method.further)
        head.key.push_back(DescribeAnalysis(*further, options));
    for (const CStr& spec : options.settings)
        head.key.push_back(DescribeSet("settings", spec));
    if (!options.batch.IsEmpty())
        head.key.push_back(DescribeSet("batch", options.batch));
    if (plan.batch)
        DescribeSteps(*plan.batch, head.key);
    for (const CParameter& parameter : choices.surface) {
        head.columns.push_back(Measurement::GetKey(parameter).ToUtf8());
        head.shown.push_back(DescribeShown(parameter));
    }
    for (const CParameter& statistic : choices.statistics) {
        if (statistic.IsOn())
            head.shown.push_back(DescribeStatistic(statistic));
    }
    return head;
}

std::string DescribeMaking(const SOptions& options, const Measurement::SChoices& choices)
{
    const Measurement::SMethod& method = choices.method;
    std::ostringstream text;
    text << std::hexfloat << method.cutoff.value_or(0);
    if (method.further)
        text << DescribeAnalysis(*method.further, options);
    if (method.motifLimits)
        text << " motifs " << method.motifLimits->roughness << ' ' << method.motifLimits->waviness;
    text << " valleys " << static_cast<int>(method.valleys.line) << ' ' << method.valleys.closingRatio << ' '
         << choices.automaticUnits << choices.automaticRowUnits << options.hasPictures
         << options.forms.hasData;
    if (const auto& sheet = options.forms.spreadsheet)
        text << " sheet " << static_cast<int>(sheet->separator) << static_cast<int>(sheet->decimal);
    for (const auto* parameters : {&choices.surface, &choices.rows}) {
        for (const CParameter& parameter : *parameters)
            text << '\n' << Measurement::GetKey(parameter).ToUtf8() << ' ' << DescribeShown(parameter);
    }
    for (const CParameter& statistic : choices.statistics) {
        if (statistic.IsOn())
            text << '\n' << DescribeStatistic(statistic);
    }
    return std::to_string(HashOf(text.str()));
}

Measurement::SChoices ChoicesOf(const SRunHead& head)
{
    if (head.shown.size() < head.columns.size() + 1)
        FailOn("columns");
    Measurement::SRequest request;
    request.method.further = ReadAnalysis(head.shown.front());
    std::vector<std::pair<std::size_t, CParameter>> plugIns;
    for (std::size_t i = 0; i < head.columns.size(); ++i) {
        if (auto plugIn = ReadPlugIn(head.columns[i], head.shown[i + 1]))
            plugIns.emplace_back(i, std::move(*plugIn));
        else
            request.keys.push_back(CStr::FromUtf8(head.columns[i]));
    }
    Measurement::SChoices choices = MakeChoices(CommonUI::CAnalysisPreferencesManager(), request);
    choices.rows.clear();
    if (request.keys.empty())
        choices.surface.clear();
    for (auto& [index, plugIn] : plugIns) {
        const auto at =
            choices.surface.begin() + static_cast<std::ptrdiff_t>(std::min(index, choices.surface.size()));
        choices.surface.insert(at, std::move(plugIn));
    }
    const std::size_t count = choices.surface.size();
    if (count != head.columns.size())
        FailOn("columns");
    choices.automaticUnits = head.shown.front().starts_with(c_automatic);
    for (std::size_t i = 0; i < count; ++i) {
        if (Measurement::GetKey(choices.surface[i]).ToUtf8() != head.columns[i])
            FailOn(head.columns[i]);
        TakeShown(head.shown[i + 1], choices.surface[i]);
    }
    const std::vector<CParameter> known = std::move(choices.statistics);
    choices.statistics.clear();
    for (std::size_t i = count + 1; i < head.shown.size(); ++i)
        choices.statistics.push_back(ReadStatistic(head.shown[i], known));
    return choices;
}

} // namespace SurfaceReport
