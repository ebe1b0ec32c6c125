#include "programs/surface_report/ManyFiles.h"

#include "analysis/numeric/SingleThread.h"
#include "formats/SurfaceReader.h"
#include "measurement/ApplySteps.h"
#include "measurement/charts/Pictures.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"
#include "platform/Terminal.h"
#include "programs/command_line/CommandLine.h"
#include "programs/surface_report/AlignedText.h"
#include "programs/surface_report/FileProgress.h"
#include "programs/surface_report/FileTable.h"
#include "programs/surface_report/Inputs.h"
#include "programs/surface_report/OutputFiles.h"
#include "programs/surface_report/RunState.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <iostream>
#include <mutex>
#include <optional>
#include <thread>

namespace SurfaceReport
{

namespace fs = std::filesystem;
namespace Measurement = CommonUI::Measurement;
using CommonUI::CParameter;
using CommonUI::CStr;

namespace
{

std::atomic<bool> s_isInterrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

// An interruption from the keyboard ends nothing but is remembered, as long as the object lives.
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
    static void Handle(int) { s_isInterrupted = true; }

    void (*m_previous)(int);
};

// What values depend on besides the file.
std::string KeyOf(const SOptions& options, const Measurement::SChoices& choices)
{
    CStr key = CStr::Format(u"level %d\n", static_cast<int>(choices.method.levelling));
    for (const CParameter& parameter : choices.surface) {
        key += parameter.GetIniName();
        for (const CParameter& variable : parameter.GetVariables())
            key += CStr::Format(u" %.17g", variable.GetVariableValue());
        key += u"\n";
    }
    std::string text = key.ToUtf8();
    for (const CStr& spec : options.settings) {
        text += spec.ToUtf8() + '\n';
        // The content of a set that is a file.
        const std::size_t begin = spec.Find(u"[File(");
        if (begin != CStr::npos) {
            const CStr path = spec.Mid(begin + 6, spec.GetLength() - begin - 8);
            text += std::to_string(TakeFingerprint(fs::path(std::u16string(path.View()))).hash) + '\n';
        }
    }
    return text;
}

// What an error says, without the file, which stands in front of it.
CStr RemarkOf(const std::exception& error, const std::string& file)
{
    const std::string message = CommandLine::GetMessage(error);
    return CStr::FromUtf8(message.starts_with(file) ? message.substr(file.size()) : message);
}

class CRun
{
public:
    CRun(const SOptions& options, const Measurement::SSets& sets, const Measurement::SChoices& choices,
         std::ostream& err)
        : m_options(options)
        , m_sets(sets)
        , m_choices(choices)
        , m_files(FindInputs(options.inputs, options.output))
        , m_rows(m_files.size())
        , m_state(options.output / "report.state", KeyOf(options, choices))
        , m_progress(m_files.size(), &err == &std::cerr && CommonUI::IsErrorStreamTerminal(), err)
    {
        if (m_files.empty())
            throw CommandLine::EUsage("there are no files in the input");
        if (!m_options.each)
            m_choices.rows.clear();
        if (m_options.resumes)
            m_state.Load();
    }

    void Work()
    {
        const std::size_t processors = std::max(1u, std::thread::hardware_concurrency());
        std::vector<std::jthread> workers;
        for (std::size_t i = 0; i < std::min(processors, m_files.size()); ++i)
            workers.emplace_back([this] { WorkOnFiles(); });
        workers.clear();
        m_state.Save();
    }
    std::size_t CountFailed() const { return m_failed; }
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

private:
    void WorkOnFiles()
    {
        const CommonUI::Analysis::CSingleThread single;
        while (!s_isInterrupted) {
            const std::size_t index = m_next++;
            if (index >= m_files.size())
                return;
            SFileRow row{.name = CStr::FromUtf8(m_files[index].path.string())};
            try {
                row.values = WorkOn(m_files[index]);
            } catch (const std::exception& error) {
                row.remark = RemarkOf(error, m_files[index].path.string() + ": ");
            }
            const std::scoped_lock lock(m_mutex);
            m_failed += row.remark.IsEmpty() ? 0 : 1;
            m_rows[index] = std::move(row);
            m_progress.Show(++m_done, m_failed);
        }
    }
    std::vector<double> WorkOn(const SInputFile& file)
    {
        const std::string name = file.path.string();
        const SFingerprint fingerprint = TakeFingerprint(file.path);
        {
            const std::scoped_lock lock(m_mutex);
            if (const auto* values = m_state.Find(name, fingerprint))
                return *values;
        }
        std::vector<double> values = Analyse(file);
        const std::scoped_lock lock(m_mutex);
        m_state.Add(name, fingerprint, values);
        SaveNowAndThen();
        return values;
    }
    std::vector<double> Analyse(const SInputFile& file)
    {
        auto surface = CommonUI::Formats::ReadSurface(file.path);
        if (surface.IsProfile())
            throw std::runtime_error("it is a profile, and the table has parameters of surfaces");
        Measurement::SInput input =
            Measurement::Process(std::move(surface), m_choices.method.levelling, m_sets.steps);
        if (!m_options.each)
            input.raw.reset();
        for (const Measurement::SRoughnessSet& set : m_sets.roughness)
            input.notes.emplace_back(u"Settings", set.name);
        Measurement::SResults results = ComputeResults(input, m_choices);
        std::vector<double> values = ValuesOf(results.surface);
        if (m_options.each)
            WriteReport(file, input, std::move(results));
        return values;
    }
    // Of the surface as it is analysed, for each parameter that is chosen.
    std::vector<double> ValuesOf(const std::vector<Measurement::SColumn>& columns) const
    {
        std::vector<double> values(m_choices.surface.size(), CommonUI::Analysis::c_undefined);
        for (std::size_t i = 0, next = 0; i < values.size() && next < columns.size(); ++i) {
            if (columns[next].parameter.GetValue() == m_choices.surface[i].GetValue())
                values[i] = columns[next++].values.back();
        }
        return values;
    }
    // Beside the reports that are there.
    void WriteReport(const SInputFile& file, const Measurement::SInput& input, Measurement::SResults results)
    {
        Measurement::CReportTables tables(std::move(results), false);
        if (m_options.hasPictures)
            tables.SetPictures(MakePictures(input, m_choices.method));
        const std::scoped_lock lock(m_writing);
        const fs::path wanted = m_options.output / file.report;
        fs::create_directories(wanted.parent_path());
        fs::path path = wanted;
        const auto isThere = [](fs::path name, const char* extension) {
            return fs::exists(name += extension);
        };
        for (int number = 2; isThere(path, ".html") || isThere(path, ".txt"); ++number)
            (path = wanted) += "-" + std::to_string(number);
        COutputFiles files;
        files.AddReport(path, tables, m_options.forms);
        files.Replace();
        files.Keep();
    }
    // What a crash costs is no more than a few seconds.
    void SaveNowAndThen()
    {
        constexpr std::chrono::seconds c_often(5);
        const auto now = std::chrono::steady_clock::now();
        if (now - m_saved < c_often)
            return;
        m_saved = now;
        m_state.Save();
    }

    const SOptions& m_options;
    const Measurement::SSets& m_sets;
    Measurement::SChoices m_choices;
    std::vector<SInputFile> m_files;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_writing{};
    std::mutex m_mutex{}; // of what follows
    std::vector<std::optional<SFileRow>> m_rows;
    std::size_t m_done = 0;
    std::size_t m_failed = 0;
    CRunState m_state;
    std::chrono::steady_clock::time_point m_saved = std::chrono::steady_clock::now();
    CFileProgress m_progress;
};

} // namespace

int ReportOnMany(const SOptions& options, const Measurement::SSets& sets,
                 const Measurement::SChoices& choices, CPreferencesFile& preferences, std::ostream& out,
                 std::ostream& err)
{
    CMadeFolder folder(options.output);
    const CInterruptions interruptions;
    std::vector<SFileRow> rows;
    std::size_t files = 0;
    std::size_t failed = 0;
    {
        CRun run(options, sets, choices, err);
        run.Work();
        folder.Keep();
        rows = run.GetRows();
        files = run.CountFiles();
        failed = run.CountFailed();
    }
    const CFileTable table(rows, choices);
    COutputFiles output;
    output.Add(options.output / "report.html", [&](const auto& write) { write(table.GetHtml()); });
    output.Add(options.output / "report.txt", [&](const auto& write) { write(table.GetText()); });
    output.Replace();
    preferences.Save();
    output.Keep();
    out << table.GetTerminalText();
    if (failed != 0)
        err << "surface_report: " << failed << " of " << files << " files failed; report.txt says why\n";
    if (rows.size() < files)
        err << "surface_report: interrupted, " << rows.size() << " of " << files
            << " files are finished; --resume goes on\n";
    return failed == 0 && rows.size() == files ? 0 : 1;
}

} // namespace SurfaceReport
