#include "programs/surface_report/ManyFiles.h"

#include "analysis/numeric/SingleThread.h"
#include "common/file/FileReplacement.h"
#include "formats/FileDigest.h"
#include "formats/SurfaceReader.h"
#include "measurement/ApplySteps.h"
#include "measurement/charts/Pictures.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"
#include "measurement/series/SurfaceValues.h"
#include "platform/Terminal.h"
#include "programs/command_line/CommandLine.h"
#include "programs/surface_report/CollectedReport.h"
#include "programs/surface_report/DocumentReport.h"
#include "programs/surface_report/FileProgress.h"
#include "programs/surface_report/FileReports.h"
#include "programs/surface_report/FileTable.h"
#include "programs/surface_report/Inputs.h"
#include "programs/surface_report/OutputFiles.h"
#include "programs/surface_report/RunHead.h"
#include "programs/surface_report/RunState.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <exception>
#include <future>
#include <iostream>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>

namespace SurfaceReport
{

namespace fs = std::filesystem;
namespace Measurement = CommonUI::Measurement;
using CommonUI::CStr;

namespace
{

std::atomic<bool> s_isInterrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

// The first interruption from the keyboard ends nothing but is remembered, as long as the object lives; the
// second ends the program.
class CInterruptions
{
public:
    CInterruptions()
        : m_previous(std::signal(SIGINT, Handle))
    {
        s_isInterrupted = false;
    }
    ~CInterruptions() { std::signal(SIGINT, m_previous); }
    CInterruptions(const CInterruptions&) = delete;
    CInterruptions& operator=(const CInterruptions&) = delete;

private:
    static void Handle(int)
    {
        s_isInterrupted = true;
        std::signal(SIGINT, SIG_DFL);
    }

    void (*m_previous)(int);
};

// What an error says, without the file, which stands in front of it.
CStr RemarkOf(const std::exception& error, const std::string& file)
{
    const std::string message = CommandLine::GetMessage(error);
    return CStr::FromUtf8(message.starts_with(file) ? message.substr(file.size()) : message);
}

class CRun
{
public:
    CRun(const SOptions& options, const SPlan& plan, const Measurement::SChoices& choices,
         const CommonUI::CAnalysisPreferencesManager& manager, std::ostream& err)
        : m_options(options)
        , m_plan(plan)
        , m_manager(manager)
        , m_choices(choices)
        , m_files(FindInputs(options.inputs, options.output))
        , m_rows(m_files.size())
        , m_collected(MakeCollectedReports(options, plan, choices, manager, m_files.size()))
        , m_state(options.output / "report.state", MakeRunHead(options, plan, choices), m_files.size())
        , m_progress(m_files.size(), &err == &std::cerr && CommonUI::IsErrorStreamTerminal(), err)
    {
        if (m_files.empty())
            throw CommandLine::EUsage("there are no files in the input");
        if (!m_options.each)
            m_choices.rows.clear();
        if (m_options.resumes)
            m_state.Load();
        if (m_options.each)
            PlaceReports();
    }

    void Work()
    {
        const std::size_t processors = std::max(1u, std::thread::hardware_concurrency());
        std::vector<std::future<void>> workers;
        for (std::size_t i = 0; i < std::min(processors, m_files.size()); ++i)
            workers.push_back(std::async(std::launch::async, [this] { WorkUntilError(); }));
        workers.clear(); // waits for them
        if (m_error)
            std::rethrow_exception(m_error);
        m_state.Save();
    }
    std::size_t CountFiles() const { return m_files.size(); }
    // Those that are finished.
    std::vector<SFileRow> GetRows() const
    {
        std::vector<SFileRow> rows;
        for (const auto& row : m_rows) {
            if (row)
                rows.push_back(*row);
        }
        return rows;
    }

    // The reports of templates on all of them.
    void WriteCollected(const std::vector<SRunFact>& facts, COutputFiles& files) const
    {
        for (const auto& [step, report] : m_collected) {
            if (step == 0 || report.HasAny()) // a step shows nothing of some files
                report.Write(m_rows, facts, m_options, files);
        }
    }

private:
    // What goes wrong besides the files stops the other threads, too.
    void WorkUntilError()
    {
        try {
            WorkOnFiles();
        } catch (...) {
            m_next = m_files.size();
            const std::scoped_lock lock(m_mutex);
            m_error = std::current_exception();
        }
    }
    void WorkOnFiles()
    {
        const CommonUI::Analysis::CSingleThread single;
        while (!s_isInterrupted) {
            const std::size_t index = m_next++;
            if (index >= m_files.size())
                return;
            SFileRow row{.name = CStr::FromUtf8(m_files[index].path.string())};
            SFingerprint fingerprint;
            try {
                WorkOn(index, fingerprint, row);
            } catch (const std::exception& error) {
                row.values.clear();
                row.remark = RemarkOf(error, m_files[index].path.string() + ": ");
            }
            const std::scoped_lock lock(m_mutex);
            m_state.Add(index, KeyOf(m_files[index].path), fingerprint, row);
            SaveNowAndThen();
            m_failed += row.values.empty() ? 1 : 0;
            m_rows[index] = std::move(row);
            m_progress.Show(++m_done, m_failed);
        }
    }
    void WorkOn(std::size_t index, SFingerprint& fingerprint, SFileRow& row)
    {
        const SInputFile& file = m_files[index];
        fingerprint = TakeFingerprint(file.path);
        if (TakeOver(file, fingerprint, row) && (!m_options.each || HasReport(file)))
            return;
        row.sha256 = CommonUI::Formats::ComputeSha256(file.path);
        Analyse(index, row);
    }
    // @return whether the row was finished before
    bool TakeOver(const SInputFile& file, const SFingerprint& fingerprint, SFileRow& row)
    {
        const std::scoped_lock lock(m_mutex);
        const SFileRow* const known = m_state.Find(KeyOf(file.path), fingerprint);
        if (known)
            row = *known;
        return known;
    }
    void Analyse(std::size_t index, SFileRow& row)
    {
        const SInputFile& file = m_files[index];
        auto surface = CommonUI::Formats::ReadSurface(file.path);
        if (surface.IsProfile())
            throw std::runtime_error("it is a profile, and the table has parameters of surfaces");
        row.date = surface.date;
        Measurement::SInput input =
            Measurement::Process(std::move(surface), m_choices.method.levelling, m_plan.sets.steps,
                                 m_plan.batch && m_plan.batch->ChangesSurface());
        input.sha256 = row.sha256;
        for (const Measurement::SRoughnessSet& set : m_plan.sets.roughness)
            input.notes.emplace_back(u"Settings", set.name);
        COutputFiles files;
        if (m_plan.batch)
            RunSteps(index, input, files, row);
        if (!m_options.each)
            input.raw.reset();
        Measurement::SResults results = ComputeResults(input, m_choices);
        TakeValues(results.surface, m_choices, row);
        Collect(0, index, row, input);
        files.Replace();
        files.Keep();
        if (m_options.each)
            WriteReport(file, input, std::move(results));
    }
    // The steps of the batch sequence, whose reports lie beside each other and become files with the row.
    void RunSteps(std::size_t index, Measurement::SInput& input, COutputFiles& files, SFileRow& row)
    {
        const SInputFile& file = m_files[index];
        const auto report = [&](Measurement::SBatchReport made) {
            if (const auto found = m_collected.find(made.step); found != m_collected.end()) {
                SFileRow collected{.name = row.name, .sha256 = row.sha256, .date = row.date};
                const Measurement::SResults& results = made.roughness ? *made.roughness : made.results;
                TakeValues(results.surface, found->second.GetChoices(), collected);
                return Collect(made.step, index, collected, made.input);
            }
            const fs::path wanted = (m_options.output / file.report) +=
                "-" + NameStepReport(made.step, made.name);
            const std::scoped_lock lock(m_writing);
            AddStepReport(MakePlace(wanted), std::move(made), m_options, files);
        };
        const auto outcome = RunBatch(*m_plan.batch, input, m_plan.request, m_manager, report);
        for (const CStr& remark : outcome.remarks)
            row.remark += (row.remark.IsEmpty() ? CStr() : CStr(u"; ")) + remark;
    }
    // For the report on all files that a step makes, or the run itself, if there is one.
    void Collect(std::size_t step, std::size_t index, const SFileRow& row, const Measurement::SInput& input)
    {
        if (const auto found = m_collected.find(step); found != m_collected.end())
            found->second.Add(index, row, input.surface, m_options.hasPictures);
    }
    // A path in a folder that is there, at which no report is.
    fs::path MakePlace(const fs::path& wanted) const
    {
        fs::create_directories(wanted.parent_path());
        fs::path path = wanted;
        for (int number = 2; HasAny(path); ++number)
            (path = wanted) += "-" + std::to_string(number);
        return path;
    }
    // Of the surface as it is analysed, for each parameter that is chosen.
    static void TakeValues(const std::vector<Measurement::SColumn>& columns,
                           const Measurement::SChoices& choices, SFileRow& row)
    {
        Measurement::SSurfaceValues found = TakeSurfaceValues(columns, choices.surface);
        row.values = std::move(found.values);
        row.reasons = std::move(found.reasons);
    }
    bool HasAny(const fs::path& report) const
    {
        const auto isThere = [&](const std::string& extension) {
            return fs::exists(fs::path(report) += extension);
        };
        return isThere(".odt") || std::ranges::any_of(m_extensions, isThere);
    }
    // Whether all of its files are there.
    bool IsWhole(const fs::path& report) const
    {
        return std::ranges::all_of(m_extensions, [&](const std::string& extension) {
            return fs::exists((m_options.output / report) += extension);
        });
    }
    // Likewise, and whether they are made as this run makes them.
    bool HasReport(const SInputFile& file)
    {
        const std::scoped_lock lock(m_mutex);
        const SStoredReport& report = m_state.GetReports().at(KeyOf(file.path));
        if (report.making != m_making || !IsWhole(report.place))
            return false;
        for (const std::string& extension : m_extensions) // whose like is not written again
            CommonUI::CFileReplacement::RemoveRests((m_options.output / report.place) += extension);
        return true;
    }
    // Each report where it was, and the others beside what is there. The state knows the places before there
    // is anything, so that what a run leaves is always replaced by the next.
    void PlaceReports()
    {
        auto& reports = m_state.GetReports();
        std::set<fs::path> taken;
        for (const auto& [file, report] : reports)
            taken.insert(report.place);
        for (const SInputFile& file : m_files) {
            const std::string key = KeyOf(file.path);
            if (reports.contains(key))
                continue;
            // States of earlier versions have no places, which were those of the inputs.
            const bool wasThere = m_state.Knows(key) && !taken.contains(file.report);
            fs::path place = file.report;
            for (int number = 2; !wasThere && (taken.contains(place) || HasAny(m_options.output / place));
                 ++number)
                (place = file.report) += "-" + std::to_string(number);
            taken.insert(place);
            reports[key] = {place, wasThere ? m_making : ""};
        }
        m_state.Save();
    }
    void WriteReport(const SInputFile& file, const Measurement::SInput& input, Measurement::SResults results)
    {
        Measurement::CReportTables tables(std::move(results), false);
        if (m_options.hasPictures)
            tables.SetPictures(MakePictures(input, m_choices.method, tables.GetResults()));
        const std::scoped_lock lock(m_writing);
        const fs::path path = m_options.output / PlaceOf(file);
        fs::create_directories(path.parent_path());
        COutputFiles files;
        files.AddReport(path, tables, m_options.forms);
        files.Replace();
        files.Keep();
        const std::scoped_lock stateLock(m_mutex);
        m_state.GetReports().at(KeyOf(file.path)).making = m_making;
    }
    fs::path PlaceOf(const SInputFile& file)
    {
        const std::scoped_lock lock(m_mutex);
        return m_state.GetReports().at(KeyOf(file.path)).place;
    }
    // What a crash costs is no more than a few seconds. One that fails is tried again; the last one tells.
    void SaveNowAndThen()
    {
        constexpr std::chrono::seconds c_often(5);
        const auto now = std::chrono::steady_clock::now();
        if (now - m_saved < c_often)
            return;
        m_saved = now;
        try {
            m_state.Save();
        } catch (const std::runtime_error&) {
            return;
        }
    }

    const SOptions& m_options;
    const SPlan& m_plan;
    const CommonUI::CAnalysisPreferencesManager& m_manager;
    Measurement::SChoices m_choices;
    const std::string m_making = DescribeMaking(m_options, m_choices);
    std::vector<std::string> m_extensions = m_options.forms.GetExtensions(); // of a report
    std::vector<SInputFile> m_files;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_writing{};
    std::mutex m_mutex{}; // of what follows
    std::vector<std::optional<SFileRow>> m_rows;
    std::map<std::size_t, CCollectedReport> m_collected; // each file has its own place in them
    std::size_t m_done = 0;
    std::size_t m_failed = 0;
    std::exception_ptr m_error{}; // not of a file
    CRunState m_state;
    std::chrono::steady_clock::time_point m_saved = std::chrono::steady_clock::now();
    CFileProgress m_progress;
};

} // namespace

int ReportOnMany(const SOptions& options, const SPlan& plan, const Measurement::SChoices& choices,
                 CPreferencesFile& preferences, std::ostream& out, std::ostream& err)
{
    CMadeFolder folder(options.output);
    const CInterruptions interruptions;
    CRun run(options, plan, choices, preferences.GetManager(), err);
    run.Work();
    folder.Keep();
    const std::vector<SFileRow> rows = run.GetRows();
    const std::size_t files = run.CountFiles();
    const SRunHead head = MakeRunHead(options, plan, choices);
    const CFileTable table(rows, choices, head.facts);
    COutputFiles output;
    run.WriteCollected(head.facts, output);
    if (!plan.sets.report)
        AddTable(options.output / "report", table, options.forms, output);
    output.Replace();
    preferences.Save();
    output.Keep();
    out << table.GetTerminalText();
    const bool hasFailures = TellOfFailures(rows, files, err);
    if (rows.size() < files)
        err << "surface_report: interrupted, " << rows.size() << " of " << files
            << " files are finished; --resume goes on\n";
    return !hasFailures && rows.size() == files ? 0 : 1;
}

} // namespace SurfaceReport
