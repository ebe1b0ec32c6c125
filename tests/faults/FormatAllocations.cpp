// Surfaces that are read and written. A failure has a reason that tells of it.

#include "formats/SurfaceReader.h"
#include "formats/SurfaceWriter.h"
#include "tests/faults/AllocationTrial.h"
#include "tests/faults/Faults.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

using namespace CommonUI::Formats;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace Faults
{

namespace
{

struct SFormat {
    const char* name;
    EFormat format;
    std::size_t lines;
};

constexpr SFormat c_formats[] = {
    {"SDF", EFormat::Sdf, 12},       {"binary SDF", EFormat::BinarySdf, 12},
    {"matrix", EFormat::Matrix, 12}, {"profile", EFormat::Profile, 1},
    {"X3P", EFormat::X3p, 12},
};

constexpr std::chrono::sys_seconds c_time{std::chrono::hours(24 * 365 * 50)};

SSurface MakeSurface(std::size_t lines)
{
    SSurface surface{.points = 40, .lines = lines, .dx = 1e-6, .dy = 2e-6};
    for (std::size_t i = 0; i < surface.points * lines; ++i)
        surface.heights.push_back(i % 7 == 3 ? c_missing : 1e-9 * static_cast<double>(i * i % 101));
    surface.channel = "a channel with a name that is longer than the object";
    return surface;
}

std::string Tell(const SSurface& surface)
{
    std::string text = std::to_string(surface.points) + ' ' + std::to_string(surface.lines) + ' ' +
                       std::to_string(surface.missing) + surface.channel + surface.fileName;
    for (const double height : surface.heights)
        text += ' ' + std::to_string(std::bit_cast<std::uint64_t>(height));
    return text;
}

void CheckReason(std::string_view reason)
{
    // Libraries do not always tell what they lack.
    constexpr std::string_view c_reasons[] = {"memory", "cannot be opened", "cannot be read",
                                              "the archive is damaged", "MD5 checksums"};
    const bool isOne = std::ranges::any_of(
        c_reasons, [reason](std::string_view one) { return reason.find(one) != reason.npos; });
    Expect(isOne && reason.find("surface.sdf") != reason.npos && reason.find('\n') == reason.npos,
           "without memory a surface is refused by: " + std::string(reason));
}

} // namespace

void AddFormats(COperations& all)
{
    for (const auto& [name, format, lines] : c_formats) {
        if (format == EFormat::X3p && !HasX3p())
            continue;
        const SSurface surface = MakeSurface(lines);
        const auto folder = std::make_shared<CTemporaryFolder>();
        folder->Write("surface.sdf", WriteSurface(surface, format, c_time));
        all.push_back(Operation<SSurface>(
            std::string("surface: read ") + name, {},
            [folder, path = folder->GetPath() / "surface.sdf"](SSurface& read) {
                try {
                    read = ReadSurface(path);
                    return true;
                } catch (const EReadError& error) {
                    CheckReason(error.what());
                    return false;
                }
            },
            Tell));
        all.back().tellsItself = all.back().isInC = true;
        all.push_back(Operation<std::string>(
            std::string("surface: write ") + name, {},
            [surface, format](std::string& bytes) {
                try {
                    bytes = WriteSurface(surface, format, c_time);
                    return true;
                } catch (const EWriteError& error) {
                    Expect(format == EFormat::X3p, error.what());
                    return false;
                }
            },
            [](std::string& bytes) { return bytes; }));
        all.back().isInC = true;
    }
}

} // namespace Faults
