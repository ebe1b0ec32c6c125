#include "programs/surface_report/SaveSurface.h"

#include "formats/SurfaceReader.h"
#include "formats/SurfaceWriter.h"
#include "programs/command_line/CommandLine.h"

#include <algorithm>
#include <chrono>

namespace SurfaceReport
{

namespace fs = std::filesystem;
namespace Formats = CommonUI::Formats;
using CommandLine::EUsage;
using Formats::EFormat;

namespace
{

// In small letters, as far as they are those of the suffixes.
std::u8string SuffixOf(const fs::path& path)
{
    std::u8string suffix = path.extension().u8string();
    std::ranges::transform(suffix, suffix.begin(), [](char8_t c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char8_t>(c - 'A' + 'a') : c;
    });
    return suffix;
}

EFormat FormatOf(const SOptions& options, bool isProfile)
{
    const std::u8string suffix = SuffixOf(options.save);
    if (suffix == u8".x3p")
        return EFormat::X3p;
    if (suffix == u8".txt")
        return isProfile ? EFormat::Profile : EFormat::Matrix;
    return options.isBinary ? EFormat::BinarySdf : EFormat::Sdf;
}

// Whether two paths lead to one file, there or not.
bool IsSameFile(const fs::path& left, const fs::path& right)
{
    std::error_code error;
    if (left.empty() || right.empty())
        return false;
    return fs::equivalent(left, right, error) ||
           fs::weakly_canonical(left, error) == fs::weakly_canonical(right, error);
}

} // namespace

void CheckSave(const SOptions& options)
{
    const fs::path& save = options.save;
    if (save.empty()) {
        if (options.isBinary || options.replacesInput)
            throw EUsage("--binary and --replace-input are for --save, which is not given");
        return;
    }
    const std::u8string suffix = SuffixOf(save);
    const std::string option = "--save: \"" + save.string() + "\"";
    if (suffix != u8".sdf" && suffix != u8".x3p" && suffix != u8".txt")
        throw EUsage(option + " ends in none of .sdf, .x3p, .txt");
    if (suffix == u8".x3p" && !Formats::HasX3p())
        throw EUsage(option + " cannot be written: the program is built without X3P");
    if (options.isBinary && suffix != u8".sdf")
        throw EUsage("--binary is for --save with a name that ends in .sdf");
    if (IsSameFile(save, options.input) && !options.replacesInput)
        throw EUsage(option + " is the input; --replace-input lets it be replaced");
    for (const fs::path& other :
         {options.output / "report.txt", options.output / "report.html", options.preferences}) {
        if (IsSameFile(save, other))
            throw EUsage(option + " is written by the program for something else");
    }
}

std::string SavedBytes(const CommonUI::Analysis::SSurface& surface, const SOptions& options)
{
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    try {
        return Formats::WriteSurface(surface, FormatOf(options, surface.IsProfile()), now);
    } catch (const Formats::EWriteError& error) {
        throw EUsage(std::string("--save: ") + error.what());
    }
}

} // namespace SurfaceReport
