#include "programs/surface_report/Merge.h"

#include "programs/command_line/CommandLine.h"
#include "programs/surface_report/FileReports.h"
#include "programs/surface_report/FileTable.h"
#include "programs/surface_report/Inputs.h"
#include "programs/surface_report/RunState.h"

#include <algorithm>
#include <map>

namespace SurfaceReport
{

namespace fs = std::filesystem;
using CommandLine::EUsage;

namespace
{

std::string Quoted(const fs::path& path)
{
    return "\"" + path.string() + "\"";
}

std::string Join(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined.empty() ? "none" : joined;
}

// What two runs differ in, as a clause; empty where they fit.
std::string FindDifference(const SRunHead& head, const SRunHead& first)
{
    if (head.columns != first.columns)
        return "its columns are " + Join(head.columns) + ", not " + Join(first.columns);
    if (head.key != first.key)
        return "it was computed with " + Join(head.key) + ", not with " + Join(first.key);
    if (head.shown != first.shown)
        return "its units, number formats or statistics are others";
    return head.facts == first.facts ? "" : "its settings sets have other names";
}

// The runs, put together as far as they have been added.
class CMerger
{
public:
    // `output` is no input.
    explicit CMerger(const fs::path& output)
        : m_output(Canonical(output))
    {
    }

    void Add(const fs::path& folder)
    {
        const std::string option = "--merge: " + Quoted(folder);
        if (Canonical(folder) == m_output)
            throw EUsage(option + " is the folder for the reports, and an input, too");
        SStoredRun run = ReadRun(folder / "report.state");
        std::erase_if(run.entries, [](const SStoredRun::SEntry& entry) { return !entry.place; });
        if (run.entries.size() != run.fileCount)
            throw EUsage(option + ": " + std::to_string(run.entries.size()) + " of " +
                         std::to_string(run.fileCount) + " files are finished; --resume goes on there");
        if (m_first.empty()) {
            m_first = folder;
            m_whole.head = run.head;
        }
        if (const std::string difference = FindDifference(run.head, m_whole.head); !difference.empty())
            throw EUsage(option + " does not fit " + Quoted(m_first) + ": " + difference);
        for (SStoredRun::SEntry& entry : run.entries)
            AddEntry(std::move(entry), folder, option);
    }
    SStoredRun Take()
    {
        m_whole.fileCount = m_whole.entries.size();
        return std::move(m_whole);
    }

private:
    void AddEntry(SStoredRun::SEntry entry, const fs::path& folder, const std::string& option)
    {
        const auto [place, isNew] = m_folders.emplace(entry.file, folder);
        if (!isNew)
            throw EUsage(option + " has the file \"" + place->first + "\", and " + Quoted(place->second) +
                         " has it, too");
        const bool isWhole =
            entry.row.values.empty() || entry.row.values.size() == m_whole.head.columns.size();
        if (!isWhole)
            throw EUsage(option + ": \"" + place->first + "\" has another number of values than columns");
        entry.place = m_whole.entries.size();
        m_whole.entries.push_back(std::move(entry));
    }

    fs::path m_output;
    fs::path m_first{};
    SStoredRun m_whole{};
    std::map<std::string, fs::path> m_folders{}; // of the files
};

} // namespace

int MergeRuns(const SOptions& options, std::ostream& out, std::ostream& err)
{
    CMerger merger(options.output);
    for (const fs::path& folder : options.inputs)
        merger.Add(folder);
    const SStoredRun run = merger.Take();
    std::vector<SFileRow> rows;
    rows.reserve(run.entries.size());
    for (const SStoredRun::SEntry& entry : run.entries)
        rows.push_back(entry.row);
    CMadeFolder folder(options.output);
    const CFileTable table(rows, ChoicesOf(run.head), run.head.facts);
    COutputFiles files;
    AddTable(options.output / "report", table, options.forms, files);
    files.Add(options.output / "report.state", [&](const auto& write) { write(WriteRun(run)); });
    files.Replace();
    files.Keep();
    folder.Keep();
    out << table.GetTerminalText();
    return TellOfFailures(rows, rows.size(), err) ? 1 : 0;
}

} // namespace SurfaceReport
