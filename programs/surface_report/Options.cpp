#include "programs/surface_report/Options.h"

#include "common/NumberText.h"
#include "model/AnalysisPreferencesData.h"
#include "model/Enumerations.h"
#include "programs/command_line/CommandLine.h"
#include "programs/surface_report/Inputs.h"
#include "programs/surface_report/SaveSurface.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace SurfaceReport
{

using CommandLine::EUsage;
using CommonUI::CStr;
using CommonUI::EAnalysis;
using CommonUI::Analysis::EGrainKind;
namespace Analysis = CommonUI::Analysis;
namespace Measurement = CommonUI::Measurement;

const char* const c_usage = R"(Reports the roughness or the grains of a measured surface.

usage: surface_report INPUT --out DIR [OPTION...]
       surface_report INPUT... --out DIR [OPTION...]
       surface_report --merge DIR... --out DIR

  INPUT              a surface or profile: SDF (ISO 25178-71), X3P (ISO 25178-72), a text matrix with a "#" header,
                     or columns of text below a line such as "x [mm] z [um]"
  INPUT...           many files, or a folder, a pattern with * and ?, a list @FILE with a path in each line: one table
                     with a row for each
  --each             writes a report of each of many files, too
  --resume           takes over what an interrupted run on many files has finished
  --merge DIR...     one table of what several runs on many files have written to these folders
  --out DIR          folder for report.txt (tab-separated), report.html, report.csv and report.json
  --parameters KEYS  parameters by their keys, separated by commas: Sa,Sq,4287Ra,4287Pz; those of templates with
                     values in m or percent: 'Smc(10),Sdc(10,50)'
  --unit UNIT        unit of lengths: pm, nm, um, mm, m, uin, mil, in ...
  --level LEVEL      what is subtracted first: none, the mean height, or the least-squares plane
  --cutoff LENGTH    cut-off of the profile filter, such as 2.5um; a fifth of the profile without it
  --motif-limits A[,B]
                     widest motifs of roughness and waviness, such as 0.5mm,2.5mm; B is five times A without it, and
                     both are those that ISO 12085 recommends for the length of the profiles without the option
  --grains HEIGHT    measures the connected grains at or above a height, such as 50nm, instead
  --grains SPEC      measures the particles or pores that a threshold set says: 'PnP[Id(198)]'  'PnP[File(x.pnps)]'
  --pores HEIGHT     measures the connected pores below a height instead
  --analysis NAME    does another analysis instead: 1DCalibration  XYCalibration  ZCalibration  CrossCorrelation
                     Linearity  PlaneCorrection  TipAnalysis
  --reference LENGTH[,LENGTH]
                     the pitch, or those along x and y, or the step height that a calibration compares with
  --pitch fourier|centroid
                     how 1DCalibration finds the mean pitch; by the Fourier transform without it
  --second FILE      the surface of which CrossCorrelation measures the shift, or the reference of Linearity
  --tip LENGTH|DEPTH[,NOISE]
                     TipAnalysis takes the tip this wide, or down to Depth10, Depth20, Depth50, Depth100 or Depth150
                     nanometres below its apex; Depth50 without it. Heights up to NOISE are no bumps of the surface
  --transpose        parameters as columns of the surface's table and as rows of the profiles' table
  --pictures yes|no  whether report.html has pictures of the surface; yes without it
  --data yes|no      whether report.csv and report.json are written, with all digits, for other programs; yes without it
  --csv-separator comma|semicolon|tab
                     writes report.sheet.csv, too, the tables for a spreadsheet program; a comma without it, or a
                     semicolon with a decimal comma
  --decimal point|comma
                     writes it with this decimal sign; a point without it
  --preferences FILE parameters, units, formats and statistics are those of an INI file, which is made with
                     the defaults where there is none
  --set CHANGE       changes the preferences and saves them, any number of times:
                     Sa=off  Sq.unit=um  Sq.format=Digits:4  Fractile=on:95  Sch=on:95
  --settings SPEC    applies a plane correction or a filter first, any number of times in the order given; the
                     surface's table then shows the raw surface beside the processed one. Of a roughness set the
                     parameters and statistics are shown in this run; a report template lays out the report, as
                     report.html or report.odt. A set is named by its identifier, its key or a file:
                     'PlaneCorr[Id(4)]'  'Filter[File(x.flt)]'  'ActiveReport[Id(30)]'
  --batch SPEC       runs a batch sequence: 'Batch[Id(65)]'  'Batch[File(x.batch)]'
  --save FILE        writes the surface that is analysed, in the format of the name: .sdf, .x3p, or .txt, which is a
                     matrix or, for a profile, columns
  --binary           the binary form of .sdf
  --replace-input    lets --save replace the input
  --spacing LENGTH   the spacing of a profile whose file has heights alone, such as 0.5um
  --list-settings [TYPE]
                     prints the sets there are of a type, such as Filter, or of all, instead of a report
  --settings-folder DIR
                     the folder whose folder "Custom Settings" holds the user's own sets
)";

namespace
{

// Of options that belong to an analysis while none is named.
constexpr EAnalysis c_noAnalysis = EAnalysis::Measure;
constexpr EAnalysis c_further[] = {EAnalysis::Calibration1D,
                                   EAnalysis::CalibrationXY,
                                   EAnalysis::CalibrationZ,
                                   EAnalysis::CrossCorrelation,
                                   EAnalysis::Linearity,
                                   EAnalysis::PlaneCorrection,
                                   EAnalysis::Tip};

CommonUI::CUnit::EUnitFactor ParseUnit(const std::string& option, const std::string& text)
{
    CommonUI::CUnit unit;
    if (!CommonUI::CUnit::ParseLength(CStr::FromUtf8(text), unit))
        throw EUsage(option + ": \"" + text + "\" is no unit of length");
    return unit.GetFactor();
}

// A number with a unit of length behind it.
double ParseLength(const std::string& option, const std::string& text)
{
    const std::size_t unit = std::min(text.find_last_of("0123456789.") + 1, text.size());
    double value = 0;
    if (!CommonUI::ParseDouble(CStr::FromUtf8(text.substr(0, unit)), value) || !std::isfinite(value))
        throw EUsage(option + ": \"" + text + "\" is no length such as 50nm");
    return value * CommonUI::CUnit::GetFactorValue(ParseUnit(option, text.substr(unit)));
}

// One length or two; the second is five times the first without it, as in the table of the standard.
Analysis::SMotifLimits ParseMotifLimits(const std::string& option, const std::string& text)
{
    constexpr double c_ratio = 5;
    const std::size_t comma = text.find(',');
    Analysis::SMotifLimits limits{.roughness = ParseLength(option, text.substr(0, comma))};
    limits.waviness =
        comma == text.npos ? c_ratio * limits.roughness : ParseLength(option, text.substr(comma + 1));
    if (!(limits.roughness > 0 && limits.waviness >= limits.roughness))
        throw EUsage(option + ": \"" + text + "\" is no length above 0, with no shorter one behind it");
    return limits;
}

// At the commas outside of parentheses.
std::vector<CStr> SplitKeys(const std::string& text)
{
    std::vector<CStr> keys;
    std::size_t begin = 0;
    for (std::size_t i = 0, depth = 0; i <= text.size(); ++i) {
        if (i == text.size() || (text[i] == ',' && depth == 0)) {
            keys.push_back(CStr::FromUtf8(text.substr(begin, i - begin)));
            begin = i + 1;
        } else if (text[i] == '(') {
            ++depth;
        } else if (text[i] == ')' && depth > 0) {
            --depth;
        }
    }
    return keys;
}

void TakeGrains(SOptions& options, const std::string& option, const std::string& height, EGrainKind kind)
{
    auto& grains = options.request.method.grains;
    if (grains || !options.grainSet.IsEmpty())
        throw EUsage(option + ": either particles or pores are measured, at one height");
    if (height.find('[') == std::string::npos)
        grains = {ParseLength(option, height), kind};
    else if (kind == EGrainKind::Pore)
        throw EUsage(option + ": a set says itself whether pores are meant; it is given with --grains");
    else
        options.grainSet = CStr::FromUtf8(height);
}

Measurement::SFurtherAnalysis& FurtherOf(SOptions& options)
{
    auto& further = options.request.method.further;
    if (!further)
        further = Measurement::SFurtherAnalysis{.analysis = c_noAnalysis};
    return *further;
}

double ParsePositive(const std::string& option, const std::string& text)
{
    const double length = ParseLength(option, text);
    if (!(length > 0))
        throw EUsage(option + ": \"" + text + "\" is not above 0");
    return length;
}

void TakeReference(SOptions& options, const std::string& option, const std::string& text)
{
    const std::size_t comma = text.find(',');
    auto& further = FurtherOf(options).options;
    further.reference = ParsePositive(option, text.substr(0, comma));
    if (comma != text.npos)
        further.referenceY = ParsePositive(option, text.substr(comma + 1));
}

void TakeTip(SOptions& options, const std::string& option, const std::string& text)
{
    const std::size_t comma = text.find(',');
    auto& further = FurtherOf(options).options;
    const auto& areas = CommonUI::GetTipEstimationAreaEnum();
    const std::string area = text.substr(0, comma);
    const auto found = areas.FindIniName(u"tea" + CStr::FromUtf8(area)); // as preferences name it
    further.tipArea = CommonUI::ETipEstimationArea::Width;
    if (found != areas.end() && found->GetValue() != static_cast<int>(further.tipArea))
        further.tipArea = static_cast<CommonUI::ETipEstimationArea>(found->GetValue());
    else
        further.tipWidth = ParsePositive(option, area);
    if (comma != text.npos)
        further.tipNoise = ParsePositive(option, text.substr(comma + 1));
}

void AddAnalysis(CommandLine::CParser& parser, SOptions& options)
{
    parser.Add("--analysis", [&options](auto& option, auto& text) {
        std::vector<std::pair<std::string, EAnalysis>> names;
        for (const EAnalysis analysis : c_further)
            names.emplace_back(CommonUI::CAnalysisPreferencesData::GetININame(analysis).ToUtf8(), analysis);
        const auto found = std::ranges::find(names, text, &std::pair<std::string, EAnalysis>::first);
        if (found == names.end())
            throw EUsage(option + ": \"" + text + "\" is no analysis such as ZCalibration");
        FurtherOf(options).analysis = found->second;
    });
    parser.Add("--reference", [&options](auto& option, auto& text) { TakeReference(options, option, text); });
    parser.Add("--tip", [&options](auto& option, auto& text) { TakeTip(options, option, text); });
    parser.Add("--pitch", [&options](auto& option, auto& text) {
        using enum Measurement::EPitchMethod;
        FurtherOf(options).options.pitchMethod = CommandLine::ParseWord<Measurement::EPitchMethod>(
            option, text, {{"fourier", Fourier}, {"centroid", Centroid}});
    });
    parser.Add("--second", [&options](auto& option, auto& file) {
        options.second = CommandLine::ParsePath(option, file);
    });
}

CommonUI::SNumberProfile& SpreadsheetOf(SOptions& options)
{
    auto& profile = options.forms.spreadsheet;
    if (!profile)
        profile = {CommonUI::ENumberProfile::Spreadsheet, u'\0', u'.'};
    return *profile;
}

void AddForms(CommandLine::CParser& parser, SOptions& options)
{
    const auto yesOrNo = [](bool& is) {
        return [&is](const std::string& option, const std::string& text) {
            is = CommandLine::ParseWord<bool>(option, text, {{"yes", true}, {"no", false}});
        };
    };
    parser.Add("--pictures", yesOrNo(options.hasPictures));
    parser.Add("--data", yesOrNo(options.forms.hasData));
    parser.Add("--csv-separator", [&options](auto& option, auto& text) {
        SpreadsheetOf(options).separator = CommandLine::ParseWord<char16_t>(
            option, text, {{"comma", u','}, {"semicolon", u';'}, {"tab", u'\t'}});
    });
    parser.Add("--decimal", [&options](auto& option, auto& text) {
        SpreadsheetOf(options).decimal =
            CommandLine::ParseWord<char16_t>(option, text, {{"point", u'.'}, {"comma", u','}});
    });
}

// The separator that goes with the decimal sign, unless one is given.
void CompleteForms(SReportForms& forms)
{
    if (!forms.spreadsheet)
        return;
    auto& [kind, separator, decimal] = *forms.spreadsheet;
    if (separator == u'\0')
        separator = decimal == u',' ? u';' : u',';
    if (separator == decimal)
        throw EUsage("--csv-separator: a comma cannot separate cells with decimal commas");
}

CommandLine::CParser MakeParser(SOptions& options)
{
    auto& request = options.request;
    CommandLine::CParser parser;
    CommandLine::AddSurfaceOptions(parser, options, request.method.levelling);
    parser.AddInputs(options.inputs);
    parser.AddFlag("--each", options.each);
    parser.AddFlag("--resume", options.resumes);
    parser.AddFlag("--merge", options.merges);
    parser.AddFlag("--transpose", options.transpose);
    AddForms(parser, options);
    AddAnalysis(parser, options);
    parser.AddFlag("--binary", options.isBinary);
    parser.AddFlag("--replace-input", options.replacesInput);
    parser.Add("--save",
               [&](auto& option, auto& file) { options.save = CommandLine::ParsePath(option, file); });
    parser.Add("--spacing",
               [&](auto& option, auto& length) { options.spacing = ParseLength(option, length); });
    parser.AddOptional("--list-settings", [&](auto&, auto& type) { options.listSettings = type; });
    parser.Add("--parameters", [&](auto&, auto& keys) { request.keys = SplitKeys(keys); });
    parser.Add("--unit", [&](auto& option, auto& unit) { request.unit = ParseUnit(option, unit); });
    parser.Add("--cutoff",
               [&](auto& option, auto& length) { request.method.cutoff = ParseLength(option, length); });
    parser.Add("--motif-limits", [&](auto& option, auto& limits) {
        request.method.motifLimits = ParseMotifLimits(option, limits);
    });
    parser.Add("--grains", [&](auto& option, auto& height) {
        TakeGrains(options, option, height, EGrainKind::Particle);
    });
    parser.Add("--pores",
               [&](auto& option, auto& height) { TakeGrains(options, option, height, EGrainKind::Pore); });
    parser.Add("--preferences",
               [&](auto& option, auto& file) { options.preferences = CommandLine::ParsePath(option, file); });
    parser.Add("--set", [&](auto&, auto& change) { options.sets.push_back(CStr::FromUtf8(change)); });
    parser.Add("--settings", [&](auto&, auto& spec) { options.settings.push_back(CStr::FromUtf8(spec)); });
    parser.Add("--batch", [&](auto&, auto& spec) { options.batch = CStr::FromUtf8(spec); });
    parser.Add("--settings-folder", [&](auto& option, auto& folder) {
        options.settingsFolder = CommandLine::ParsePath(option, folder);
    });
    return parser;
}

// How profiles are analysed.
constexpr std::string_view c_ofProfiles[] = {"--cutoff", "--motif-limits"};

bool IsGiven(std::string_view option, std::span<const std::string_view> given)
{
    return std::ranges::find(given, option) != given.end();
}

// The first option that is not among those; empty for none.
std::string FindOther(std::span<const std::string_view> given,
                      std::initializer_list<std::string_view> allowed)
{
    const auto found = std::ranges::find_if(
        given, [&](std::string_view option) { return std::ranges::find(allowed, option) == allowed.end(); });
    return found != given.end() ? std::string(*found) : std::string();
}

// What would have no effect beside --list-settings is refused rather than forgotten.
void CheckListOptions(const SOptions& options, std::span<const std::string_view> given)
{
    const std::string other = FindOther(given, {"--list-settings", "--preferences", "--settings-folder"});
    const std::string what = other.empty() ? options.input.string() : other;
    if (!what.empty())
        throw EUsage("--list-settings prints sets instead of a report: \"" + what +
                     "\" has no effect beside it");
}

// The parts have been computed, and how they are shown is said in them.
void CheckMergeOptions(std::span<const std::string_view> given)
{
    const std::string other =
        FindOther(given, {"--merge", "--out", "--data", "--csv-separator", "--decimal"});
    if (!other.empty())
        throw EUsage("--merge puts together what is there: \"" + other + "\" has no effect beside it");
}

// What would have no effect on grains; a template or a sequence may have blocks of roughness besides.
void CheckGrainOptions(const SOptions& options, std::span<const std::string_view> given)
{
    if (!IsGiven("--grains", given) && !IsGiven("--pores", given))
        return;
    for (const std::string_view option : c_ofProfiles) {
        if (IsGiven(option, given) && options.batch.IsEmpty() && options.settings.empty())
            throw EUsage(std::string(option) + " is for profiles, and grains are measured instead");
    }
}

// What an analysis takes beside itself, and what has no effect beside it.
void CheckAnalysis(const SOptions& options, std::span<const std::string_view> given)
{
    const auto& further = options.request.method.further;
    const EAnalysis analysis = further ? further->analysis : c_noAnalysis;
    struct SRow {
        std::string_view option;
        std::initializer_list<EAnalysis> takenBy;
    };
    using enum EAnalysis;
    const SRow rows[] = {{"--reference", {Calibration1D, CalibrationXY, CalibrationZ}},
                         {"--pitch", {Calibration1D}},
                         {"--second", {CrossCorrelation, Linearity}},
                         {"--tip", {Tip}}};
    for (const auto& [option, takenBy] : rows)
        if (IsGiven(option, given) && std::ranges::find(takenBy, analysis) == takenBy.end())
            throw EUsage(std::string(option) + " is not for this analysis");
    if (further && further->options.referenceY && analysis != CalibrationXY)
        throw EUsage("--reference: only XYCalibration has two");
    if (!IsGiven("--analysis", given))
        return;
    if (analysis == CrossCorrelation && options.second.empty())
        throw EUsage("--analysis: CrossCorrelation takes the surface to compare with by --second");
    for (const std::string_view option : {"--grains", "--pores", "--cutoff", "--motif-limits", "--batch"})
        if (IsGiven(option, given))
            throw EUsage(std::string(option) + " has no effect beside --analysis");
}

// What would have no effect on a table of many files.
void CheckManyOptions(const SOptions& options, std::span<const std::string_view> given)
{
    for (const std::string_view option : {"--grains", "--pores", "--save", "--transpose", "--spacing"}) {
        if (IsGiven(option, given))
            throw EUsage(std::string(option) + " is for one file, and the input is many");
    }
    for (const std::string_view option : c_ofProfiles) {
        if (IsGiven(option, given) && !options.each && options.batch.IsEmpty() && options.settings.empty())
            throw EUsage(std::string(option) +
                         " is for the reports that --each writes: the table has no profiles");
    }
    if (!options.batch.IsEmpty() && (options.each || options.resumes))
        throw EUsage(
            "--each and --resume are not for --batch, whose sequence says which reports are written");
}

} // namespace

SOptions ParseOptions(std::span<const char* const> arguments)
{
    SOptions options;
    const std::vector<std::string_view> given = MakeParser(options).Parse(arguments);
    if (!options.inputs.empty())
        options.input = options.inputs.front();
    options.isMany = !IsOneFile(options.inputs);
    options.request.usesPreferences = !options.preferences.empty();
    if (options.help)
        return options;
    if (options.listSettings) {
        CheckListOptions(options, given);
        return options;
    }
    CommandLine::CheckSurfaceOptions(options, "folder is given for the reports");
    CompleteForms(options.forms);
    if (options.merges) {
        CheckMergeOptions(given);
        return options;
    }
    if (!options.sets.empty() && options.preferences.empty())
        throw EUsage("--set changes preferences, but no --preferences are given");
    if (!options.batch.IsEmpty() && !options.request.keys.empty())
        throw EUsage("--parameters is not for --batch, whose sets and the preferences say what is computed");
    CheckGrainOptions(options, given);
    CheckAnalysis(options, given);
    if (options.isMany)
        CheckManyOptions(options, given);
    else if (options.each || options.resumes)
        throw EUsage("--each and --resume are for more than one file");
    CheckSave(options);
    return options;
}

} // namespace SurfaceReport
