#include "examples/surface_report/Program.h"

#include "common/FileBytes.h"
#include "examples/analysis/ArealParameters.h"
#include "examples/analysis/Levelling.h"
#include "examples/analysis/MaterialRatio.h"
#include "examples/analysis/ProfileParameters.h"
#include "examples/analysis/SurfaceReader.h"
#include "examples/surface_report/Options.h"
#include "examples/surface_report/Report.h"

#include <cstdint>
#include <filesystem>
#include <ostream>

namespace SurfaceReport
{

namespace
{

namespace fs = std::filesystem;

/// Shows how far the reading of a long file has come, on one line that is removed at the end.
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

SurfaceAnalysis::SSurface Read(const fs::path& input, std::ostream& err)
{
    CProgressLine progress(input, err);
    return SurfaceAnalysis::ReadSurface(input, [&progress](double fraction) { progress.Show(fraction); });
}

void WriteFile(const fs::path& path, const std::string& bytes)
{
    CommonUI::CStr reason;
    if (!CommonUI::ReplaceFileBytes(path.u16string(), bytes, reason))
        throw std::runtime_error(path.string() + ": " + reason.ToUtf8());
}

void Run(const SOptions& options, std::ostream& out, std::ostream& err)
{
    SurfaceAnalysis::SSurface surface = Read(options.input, err);
    try {
        SurfaceAnalysis::Level(surface, options.levelling);
        const auto areal = SurfaceAnalysis::ComputeAreal(surface);
        const auto profiles = SurfaceAnalysis::ComputeProfiles(surface);
        const CReport report(surface, SelectColumns(areal, profiles, options), options);
        fs::create_directories(options.folder);
        WriteFile(options.folder / "report.html", report.GetHtml());
        WriteFile(options.folder / "report.txt", report.GetText());
        out << report.GetTerminalText();
    } catch (const SurfaceAnalysis::ENoPoints& error) {
        throw std::runtime_error(options.input.string() + ": " + error.what());
    }
}

} // namespace

int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err)
{
    try {
        const SOptions options = ParseOptions(arguments);
        if (options.help)
            out << c_usage;
        else
            Run(options, out, err);
        return 0;
    } catch (const std::exception& error) {
        err << "surface_report: " << error.what() << "\n";
        return 1;
    }
}

} // namespace SurfaceReport
