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
#include <iostream>

namespace
{

using namespace SurfaceReport;
namespace fs = std::filesystem;

/// Shows how far the reading of a long file has come, on one line that is removed at the end.
class CProgressLine
{
public:
    explicit CProgressLine(const fs::path& input)
    {
        constexpr std::uintmax_t longInput = 8 << 20;
        std::error_code error;
        const auto size = fs::file_size(input, error);
        m_shown = !error && size >= longInput;
    }
    ~CProgressLine()
    {
        if (m_shown)
            std::cerr << "\r                    \r" << std::flush;
    }
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

    void Show(double fraction)
    {
        const int percent = static_cast<int>(fraction * 100);
        if (!m_shown || percent == m_percent)
            return;
        m_percent = percent;
        std::cerr << "\rreading: " << percent << " %" << std::flush;
    }

private:
    bool m_shown = false;
    int m_percent = -1;
};

SurfaceAnalysis::SSurface Read(const fs::path& input)
{
    CProgressLine progress(input);
    return SurfaceAnalysis::ReadSurface(input, [&progress](double fraction) { progress.Show(fraction); });
}

void WriteFile(const fs::path& path, const std::string& bytes)
{
    CommonUI::CStr reason;
    if (!CommonUI::ReplaceFileBytes(path.u16string(), bytes, reason))
        throw std::runtime_error(path.string() + ": " + reason.ToUtf8());
}

void Run(const SOptions& options)
{
    SurfaceAnalysis::SSurface surface = Read(options.input);
    try {
        SurfaceAnalysis::Level(surface, options.levelling);
        const auto areal = SurfaceAnalysis::ComputeAreal(surface);
        const auto profiles = SurfaceAnalysis::ComputeProfiles(surface);
        const CReport report(surface, SelectColumns(areal, profiles, options), options);
        fs::create_directories(options.folder);
        WriteFile(options.folder / "report.html", report.GetHtml());
        WriteFile(options.folder / "report.txt", report.GetText());
        std::cout << report.GetTerminalText();
    } catch (const SurfaceAnalysis::ENoPoints& error) {
        throw std::runtime_error(options.input.string() + ": " + error.what());
    }
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const SOptions options = ParseOptions({argv + 1, static_cast<std::size_t>(argc - 1)});
        if (options.help)
            std::cout << c_usage;
        else
            Run(options);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "surface_report: " << error.what() << "\n";
        return 1;
    }
}
