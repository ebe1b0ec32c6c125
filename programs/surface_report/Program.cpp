#include "programs/surface_report/Program.h"

#include "analysis/areal/MaterialRatio.h"
#include "analysis/form/Levelling.h"
#include "common/FileBytes.h"
#include "formats/SurfaceReader.h"
#include "platform/Folders.h"
#include "programs/surface_report/Choices.h"
#include "programs/surface_report/Content.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/Preferences.h"
#include "programs/surface_report/Processing.h"
#include "programs/surface_report/Report.h"
#include "programs/surface_report/Steps.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <ostream>

namespace SurfaceReport
{

namespace
{

namespace fs = std::filesystem;

// Shows how far the reading of a long file has come, on one line that is removed at the end.
class CProgressLine
{
public:
    CProgressLine(const fs::path& input, std::ostream& err)
        : m_err(err)
    {
        constexpr std::uintmax_t longInput = 8 << 20;
        std::error_code error;
        const auto size = fs::file_size(input, error);
        m_shown = !error && size >= longInput;
    }
    ~CProgressLine()
    {
        if (m_shown)
            m_err << "\r                    \r" << std::flush;
    }
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

    void Show(double fraction)
    {
        const int percent = static_cast<int>(fraction * 100);
        if (!m_shown || percent == m_percent)
            return;
        m_percent = percent;
        m_err << "\rreading: " << percent << " %" << std::flush;
    }

private:
    std::ostream& m_err;
    bool m_shown = false;
    int m_percent = -1;
};

CommonUI::Analysis::SSurface Read(const fs::path& input, std::ostream& err)
{
    CProgressLine progress(input, err);
    return CommonUI::Formats::ReadSurface(input, [&progress](double fraction) { progress.Show(fraction); });
}

void WriteFile(const fs::path& path, const std::string& bytes)
{
    CommonUI::CStr reason;
    if (!CommonUI::ReplaceFileBytes(path.u16string(), bytes, reason))
        throw std::runtime_error(path.string() + ": " + reason.ToUtf8());
}

// Writes both reports to a folder that is there, or neither: when the second cannot be written, the first is
// as it was.
void WriteReports(const CReport& report, const fs::path& folder)
{
    const fs::path html = folder / "report.html";
    std::string before;
    CommonUI::CStr reason;
    const bool existed = CommonUI::ReadFileBytes(html.u16string(), before, before.max_size(), reason);
    WriteFile(html, report.GetHtml());
    try {
        WriteFile(folder / "report.txt", report.GetText());
    } catch (const std::runtime_error&) {
        if (existed)
            WriteFile(html, before);
        else
            fs::remove(html);
        throw;
    }
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
            throw EUsage("--settings-folder: \"" + settings.string() + "\" is no folder");
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

// Does to the surface what the options ask; the raw one is kept where the steps change it.
void Process(SInput& input, const std::vector<SStep>& steps, const SOptions& options)
{
    if (!steps.empty())
        input.raw = input.surface;
    CommonUI::Analysis::Level(input.surface, options.levelling);
    for (const SStep& step : steps) {
        Apply(step, input.surface);
        input.steps.push_back(step.name);
    }
}

void MakeReport(const SOptions& options, CPreferencesFile& preferences, std::ostream& out, std::ostream& err)
{
    const SChoices choices = MakeChoices(preferences.GetManager(), options);
    const std::vector<SStep> steps = LoadSteps(preferences.GetFactory(), options.settings);
    SInput input{.surface = Read(options.input, err)};
    try {
        Process(input, steps, options);
        const CReport report(MakeContent(input, choices, options), options.transpose);
        fs::create_directories(options.folder); // what fails more often than writing comes first
        preferences.Save();
        WriteReports(report, options.folder);
        Print(report.GetTerminalText(), out);
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
