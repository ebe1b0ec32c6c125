#include "programs/surface_report/Program.h"

#include "analysis/surface/Surface.h"
#include "formats/FileDigest.h"
#include "formats/SurfaceReader.h"
#include "measurement/ApplySteps.h"
#include "measurement/Batch.h"
#include "measurement/charts/Pictures.h"
#include "measurement/Choices.h"
#include "measurement/documents/CollectionDocument.h"
#include "measurement/documents/OdtDocument.h"
#include "measurement/documents/ReportDocument.h"
#include "measurement/GrainLimit.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"
#include "measurement/Steps.h"
#include "platform/Folders.h"
#include "platform/memory/FixedFolders.h"
#include "programs/command_line/CommandLine.h"
#include "programs/command_line/ForOption.h"
#include "programs/command_line/ProgressLine.h"
#include "programs/surface_report/DocumentReport.h"
#include "programs/surface_report/ListSettings.h"
#include "programs/surface_report/ManyFiles.h"
#include "programs/surface_report/Merge.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/OutputFiles.h"
#include "programs/surface_report/Plan.h"
#include "programs/surface_report/PreferencesFile.h"
#include "programs/surface_report/SaveSurface.h"
#include "programs/surface_report/TerminalText.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <variant>

namespace SurfaceReport
{

using CommandLine::ForOption;

namespace
{

namespace fs = std::filesystem;
namespace Measurement = CommonUI::Measurement;

CommonUI::Analysis::SSurface Read(const SOptions& options, std::ostream& err)
{
    constexpr std::uintmax_t c_longInput = 8 << 20;
    std::error_code error;
    const auto size = fs::file_size(options.input, error);
    CommandLine::CProgressLine progress("reading", !error && size >= c_longInput, err);
    return CommonUI::Formats::ReadSurface(
        options.input,
        {.progress = [&progress](double fraction) { progress.Show(fraction); }, .spacing = options.spacing});
}

// Writes the files, and the surface where it is to be saved, to a folder that is there and saves the
// preferences, or does nothing of all that.
void WriteAll(const CommonUI::Analysis::SSurface& surface, const SOptions& options,
              CPreferencesFile& preferences, COutputFiles& files)
{
    if (!options.save.empty())
        files.Add(options.save, [&](const auto& write) { write(SavedBytes(surface, options)); });
    files.Replace();
    preferences.Save();
    files.Keep();
}

// Has the user's own sets looked for in the options' folder as long as the object lives.
class CSettingsFolderScope
{
public:
    explicit CSettingsFolderScope(const SOptions& options)
    {
        const fs::path& settings = options.settingsFolder;
        if (settings.empty())
            return;
        if (!fs::is_directory(settings))
            throw CommandLine::EUsage("--settings-folder: \"" + settings.string() + "\" is no folder");
        m_folders.emplace(CommonUI::GetFolders().GetApplicationFolder(), settings);
        m_scope.emplace(*m_folders);
    }

private:
    std::optional<CommonUI::CFixedFolders> m_folders;
    std::optional<CommonUI::CServiceScope<CommonUI::CFolders>> m_scope;
};

// Prints the answer to what was asked for.
void Print(const std::string& text, std::ostream& out)
{
    if (!(out << text << std::flush))
        throw std::runtime_error("the output cannot be printed");
}

// Loads the sets that an option names.
template<class FLoad>
auto LoadFor(const char* option, FLoad load)
{
    return ForOption(option, [&] {
        try {
            return load();
        } catch (const Measurement::EUnknownSet& error) {
            throw CommandLine::EUsage(std::string(option) + " " + error.what() + "; see --list-settings");
        }
    });
}

Measurement::SSets LoadSets(CommonUI::CSettingsFactory& factory, const SOptions& options)
{
    return LoadFor("--settings", [&] { return Measurement::LoadSets(factory, options.settings); });
}

// What is asked for, with the sets that say more of it.
Measurement::SRequest CompleteRequest(const SOptions& options, const Measurement::SSets& sets,
                                      CommonUI::CSettingsFactory& factory)
{
    Measurement::SRequest request = options.request;
    if (!options.grainSet.IsEmpty())
        request.method.grainSearch =
            LoadFor("--grains", [&] { return Measurement::LoadGrainSearch(factory, options.grainSet); });
    for (const Measurement::SRoughnessSet& set : sets.roughness) {
        if (request.method.further)
            throw CommandLine::EUsage("--settings " + set.userSpec.ToUtf8() +
                                      ": it says nothing of the analysis that is done instead");
        if (request.method.MeasuresGrains())
            throw CommandLine::EUsage("--settings " + set.userSpec.ToUtf8() +
                                      ": it says nothing of grains, which are measured instead");
        request.roughness.push_back(set.data);
    }
    if (sets.report && request.method.MeasuresGrains())
        request = RequestGrains(std::move(request), sets.report->layout);
    return request;
}

// The lines of the summary about the sets that are not steps.
void AddNotes(const Measurement::SSets& sets, const Measurement::SMethod& method, Measurement::SInput& input)
{
    for (const Measurement::SRoughnessSet& set : sets.roughness)
        input.notes.emplace_back(u"Settings", set.name);
    if (method.grainSearch)
        input.notes.emplace_back(u"Settings", method.grainSearch->name);
}

// What can be said of a template before anything is read.
void CheckTemplate(const Measurement::SReportTemplate& set, const SOptions& options)
{
    const std::string option = "--settings: " + set.name.ToUtf8() + ": ";
    if (options.request.method.further)
        throw CommandLine::EUsage(option + "a report template has no effect beside --analysis");
    if (options.isMany && !Measurement::IsAboutSeveral(set.layout))
        throw CommandLine::EUsage(option + "the report template is about one file, and the input is many");
    if (options.resumes)
        throw CommandLine::EUsage(option + "--resume is not for a report template, which shows all files");
    if (set.layout.format == CommonUI::EReportFormat::Doc && !Measurement::HasOdt())
        throw CommandLine::EUsage(option + CommonUI::CStr(Measurement::c_noOdt).ToUtf8());
}

// The sets are loaded in the order in which they become recent ones.
SPlan MakePlan(const SOptions& options, CommonUI::CSettingsFactory& factory)
{
    SPlan plan{.sets = LoadSets(factory, options), .request = {}};
    if (plan.sets.report)
        CheckTemplate(*plan.sets.report, options);
    plan.request = CompleteRequest(options, plan.sets, factory);
    if (!options.batch.IsEmpty())
        plan.batch = LoadFor("--batch", [&] { return Measurement::LoadBatch(factory, options.batch); });
    return plan;
}

// The analysis that is in force at the end of a batch sequence; its reports become files.
// @param failures those of the reports are added
Measurement::SChoices RunSteps(const SPlan& plan, const SOptions& options,
                               const CPreferencesFile& preferences, Measurement::SInput& input,
                               COutputFiles& files, std::size_t& failures, std::ostream& err)
{
    const auto report = [&](Measurement::SBatchReport made) {
        failures += made.results.CountFailures();
        const fs::path path = options.output / ("report-" + NameStepReport(made.step, made.name));
        AddStepReport(path, std::move(made), options, files);
    };
    auto outcome = RunBatch(*plan.batch, input, plan.request, preferences.GetManager(), report);
    for (const CommonUI::CStr& remark : outcome.remarks)
        err << "surface_report: " << CommandLine::ToTerminal(remark.ToUtf8()) << "\n";
    return std::move(outcome.choices);
}

// Adds the report of the run, as its template lays it out where there is one.
void AddReport(const SPlan& plan, const SOptions& options, const CPreferencesFile& preferences,
               const Measurement::SInput& input, const Measurement::SChoices& choices,
               Measurement::CReportTables& report, COutputFiles& files)
{
    const fs::path path = options.output / "report";
    if (!plan.sets.report) {
        if (options.hasPictures)
            report.SetPictures(MakePictures(input, choices.method, report.GetResults()));
        return files.AddReport(path, report, options.forms);
    }
    const CommonUI::SReportTemplateSettings& layout = plan.sets.report->layout;
    std::optional<Measurement::SResults> roughness;
    if (choices.method.MeasuresGrains() && Measurement::IsAboutRoughness(layout))
        roughness = ComputeResults(
            input, MakeChoices(preferences.GetManager(), Measurement::RequestRoughness(plan.request)));
    AddDocument(path, layout, input, choices.method, report, std::move(roughness), options, files);
}

// The surface that an analysis compares with, after what is done to the input.
void TakeSecond(const SOptions& options, const SPlan& plan, Measurement::SChoices& choices)
{
    if (options.second.empty())
        return;
    Measurement::SInput second = ForOption("--settings", [&] {
        const CommonUI::Formats::SReadOptions reading{.progress = {}, .spacing = options.spacing};
        return Process(CommonUI::Formats::ReadSurface(options.second, reading), choices.method.levelling,
                       plan.sets.steps);
    });
    choices.method.further->options.second =
        std::make_shared<const CommonUI::Analysis::SSurface>(std::move(second.surface));
}

// What was asked for is looked into before the file is read.
// @return the exit status
int MakeReport(const SOptions& options, CPreferencesFile& preferences, std::ostream& out, std::ostream& err)
{
    const SPlan plan = MakePlan(options, preferences.GetFactory());
    Measurement::SChoices choices =
        ForOption("--parameters", [&] { return MakeChoices(preferences.GetManager(), plan.request); });
    CommonUI::Analysis::SSurface surface = Read(options, err);
    if (surface.IsProfile() && choices.rows.empty() && !options.request.keys.empty())
        throw CommandLine::EUsage(
            "--parameters: the file is a profile, and none of these is one of profiles");
    TakeSecond(options, plan, choices);
    try {
        Measurement::SInput input = ForOption("--settings", [&] {
            return Process(std::move(surface), choices.method.levelling, plan.sets.steps,
                           plan.batch && plan.batch->ChangesSurface());
        });
        AddNotes(plan.sets, choices.method, input);
        input.sha256 = CommonUI::Formats::ComputeSha256(options.input);
        CMadeFolder folder(options.output);
        COutputFiles files;
        std::size_t failures = 0;
        if (plan.batch)
            choices = RunSteps(plan, options, preferences, input, files, failures, err);
        Measurement::CReportTables report(
            ForOption("--cutoff", [&] { return ComputeResults(input, choices); }), options.transpose);
        AddReport(plan, options, preferences, input, choices, report, files);
        WriteAll(input.surface, options, preferences, files);
        folder.Keep();
        Print(TerminalText(report), out);
        failures += report.GetResults().CountFailures();
        if (failures != 0)
            err << "surface_report: " << failures
                << " parameters could not be computed; the notes below the tables say why\n";
        return failures == 0 ? 0 : 1;
    } catch (const CommonUI::Analysis::ENoPoints& error) {
        throw std::runtime_error(options.input.string() + ": " + error.what());
    }
}

// The request with the roughness sets of a batch sequence, which count in the table of many files.
Measurement::SRequest RequestOfTable(const SPlan& plan)
{
    Measurement::SRequest request = plan.request;
    if (plan.batch) {
        for (const Measurement::SBatchWork& step : plan.batch->steps) {
            if (const auto* const set = std::get_if<Measurement::SRoughnessSet>(&step.work))
                request.roughness.push_back(set->data);
        }
    }
    return request;
}

int MakeTable(const SOptions& options, CPreferencesFile& preferences, std::ostream& out, std::ostream& err)
{
    const SPlan plan = MakePlan(options, preferences.GetFactory());
    Measurement::SChoices choices = ForOption(
        "--parameters", [&] { return MakeChoices(preferences.GetManager(), RequestOfTable(plan)); });
    TakeSecond(options, plan, choices);
    if (choices.surface.empty() && !options.request.method.further)
        throw CommandLine::EUsage(
            options.request.keys.empty()
                ? "no parameter of surfaces is on, and these are what the table of many files has"
                : "--parameters: none of these is one of surfaces, which the table of many files has");
    return ReportOnMany(options, plan, choices, preferences, out, err);
}

int Run(const SOptions& options, std::ostream& out, std::ostream& err)
{
    if (options.merges)
        return MergeRuns(options, out, err);
    const CSettingsFolderScope folder(options);
    CPreferencesFile preferences(options);
    preferences.Tell(err);
    int status = 0;
    if (options.listSettings)
        Print(ListSettings(preferences.GetFactory(), *options.listSettings), out);
    else if (options.isMany)
        status = MakeTable(options, preferences, out, err);
    else
        status = MakeReport(options, preferences, out, err);
    preferences.Tell(err);
    return status;
}

} // namespace

int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err)
{
    return CommandLine::Run("surface_report", err, [&] {
        const SOptions options = ParseOptions(arguments);
        if (options.help)
            out << c_usage;
        else
            return Run(options, out, err);
        return 0;
    });
}

} // namespace SurfaceReport
