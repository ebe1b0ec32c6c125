#include "programs/surface_report/Program.h"

#include "analysis/surface/Surface.h"
#include "common/FileReplacement.h"
#include "formats/SurfaceReader.h"
#include "measurement/ApplySteps.h"
#include "measurement/Choices.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"
#include "measurement/Steps.h"
#include "platform/Folders.h"
#include "programs/command_line/CommandLine.h"
#include "programs/command_line/ForOption.h"
#include "programs/command_line/ProgressLine.h"
#include "programs/surface_report/ListSettings.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/PreferencesFile.h"
#include "programs/surface_report/SaveSurface.h"
#include "programs/surface_report/TerminalText.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>

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

// A folder that is made where there is none, with those above it, and goes again unless it is kept.
class CMadeFolder
{
public:
    // Delegates, so that the destructor undoes what was made before it failed.
    explicit CMadeFolder(const fs::path& folder)
        : CMadeFolder()
    {
        for (fs::path path = folder; !path.empty() && !fs::exists(path); path = path.parent_path())
            m_made.push_back(path);
        fs::create_directories(folder);
    }
    ~CMadeFolder()
    {
        std::error_code ignored;
        for (const fs::path& path : m_made)
            fs::remove(path, ignored);
    }
    CMadeFolder(const CMadeFolder&) = delete;
    CMadeFolder& operator=(const CMadeFolder&) = delete;

    void Keep() { m_made.clear(); }

private:
    CMadeFolder() = default;

    std::vector<fs::path> m_made{}; // the deepest first
};

// A report on its way to its file.
class CReportFile
{
public:
    // @param make writes the report with the function that it is called with
    CReportFile(fs::path path, const std::function<void(const Measurement::FWriteText&)>& make)
        : m_path(std::move(path))
    {
        CommonUI::CStr reason;
        Check(m_file.Open(m_path.u16string(), reason), reason);
        make([&](std::string_view piece) { Check(m_file.Write(piece, reason), reason); });
    }

    void Replace()
    {
        CommonUI::CStr reason;
        Check(m_file.ReplaceForNow(reason), reason);
    }
    void Keep() { m_file.Keep(); }

private:
    void Check(bool done, const CommonUI::CStr& reason) const
    {
        if (!done)
            throw std::runtime_error(m_path.string() + ": " + reason.ToUtf8());
    }

    fs::path m_path;
    CommonUI::CFileReplacement m_file{};
};

// Writes both reports to a folder that is there and the surface where it is to be saved, and saves the preferences, or
// does nothing of all that.
void WriteAll(const Measurement::CReportTables& report, const CommonUI::Analysis::SSurface& surface,
              const SOptions& options, CPreferencesFile& preferences)
{
    CReportFile html(options.output / "report.html", [&](const auto& write) { report.WriteHtml(write); });
    CReportFile text(options.output / "report.txt", [&](const auto& write) { report.WriteText(write); });
    std::optional<CReportFile> saved;
    if (!options.save.empty())
        saved.emplace(options.save, [&](const auto& write) { write(SavedBytes(surface, options)); });
    html.Replace();
    text.Replace();
    if (saved)
        saved->Replace();
    preferences.Save();
    if (saved)
        saved->Keep();
    html.Keep();
    text.Keep();
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

std::vector<Measurement::SStep> LoadSteps(CommonUI::CSettingsFactory& factory, const SOptions& options)
{
    return ForOption("--settings", [&] {
        try {
            return Measurement::LoadSteps(factory, options.settings);
        } catch (const Measurement::EUnknownSet& error) {
            throw CommandLine::EUsage(std::string("--settings ") + error.what() + "; see --list-settings");
        }
    });
}

// What was asked for is looked into before the file is read.
void MakeReport(const SOptions& options, CPreferencesFile& preferences, std::ostream& out, std::ostream& err)
{
    const Measurement::SChoices choices =
        ForOption("--parameters", [&] { return MakeChoices(preferences.GetManager(), options.request); });
    const std::vector<Measurement::SStep> steps = LoadSteps(preferences.GetFactory(), options);
    CommonUI::Analysis::SSurface surface = Read(options, err);
    if (surface.IsProfile() && choices.rows.empty() && !options.request.keys.empty())
        throw CommandLine::EUsage(
            "--parameters: the file is a profile, and none of these is one of profiles");
    try {
        const Measurement::SInput input = ForOption(
            "--settings", [&] { return Process(std::move(surface), choices.method.levelling, steps); });
        const Measurement::CReportTables report(
            ForOption("--cutoff", [&] { return ComputeResults(input, choices); }), options.transpose);
        CMadeFolder folder(options.output);
        WriteAll(report, input.surface, options, preferences);
        folder.Keep();
        Print(TerminalText(report), out);
    } catch (const CommonUI::Analysis::ENoPoints& error) {
        throw std::runtime_error(options.input.string() + ": " + error.what());
    }
}

void Run(const SOptions& options, std::ostream& out, std::ostream& err)
{
    const CSettingsFolderScope folder(options);
    CPreferencesFile preferences(options);
    if (options.listSettings)
        Print(ListSettings(preferences.GetFactory(), *options.listSettings), out);
    else
        MakeReport(options, preferences, out, err);
}

} // namespace

int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err)
{
    return CommandLine::Run("surface_report", err, [&] {
        const SOptions options = ParseOptions(arguments);
        if (options.help)
            out << c_usage;
        else
            Run(options, out, err);
        return 0;
    });
}

} // namespace SurfaceReport
