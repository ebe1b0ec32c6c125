#include "formats/SurfaceReader.h"
#include "formats/SurfaceWriter.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/FuzzFile.h"
#include "tests/fuzz/Targets.h"

#include <cmath>
#include <optional>
#if defined(COMMONUI_WITH_X3P)
#include "tests/formats/ZipArchive.h"
#endif

using namespace CommonUI::Formats;
using CommonUI::Analysis::SSurface;

namespace
{

void ExpectSound(const SSurface& surface)
{
    std::size_t missing = 0;
    for (const double height : surface.heights) {
        missing += std::isnan(height) ? 1U : 0U;
        Fuzz::Expect(std::isnan(height) || std::abs(height) <= 1e9, "heights are finite");
    }
    Fuzz::Expect(surface.points * surface.lines == surface.heights.size(), "as many heights as points");
    Fuzz::Expect(surface.points > 0 && surface.lines > 0, "there is a point");
    Fuzz::Expect(surface.missing == missing, "missing points are counted");
    Fuzz::Expect(surface.dx >= 1e-18 && surface.dx <= 1e9 && surface.dy >= 1e-18 && surface.dy <= 1e9,
                 "spacings are lengths");
}

std::optional<SSurface> Read(const Fuzz::CFuzzFile& file, std::string_view bytes, const SReadOptions& options)
{
    file.Write(bytes);
    try {
        SSurface surface = ReadSurface(file.GetPath(), options);
        ExpectSound(surface);
        return surface;
    } catch (const EReadError& error) {
        const std::string_view message = error.what();
        Fuzz::Expect(message.find('\n') == message.npos, "a refusal is one line");
        Fuzz::Expect(message.find("fuzz.surface") != message.npos, "a refusal names the file");
        return std::nullopt;
    }
}

} // namespace

// Any file as a surface: what is read is sound, and comes back from the formats that keep all of it.
void Fuzz::RunSurface(std::string_view bytes)
{
    static const CFuzzFile file("fuzz.surface");
    std::optional<SSurface> surface = Read(file, bytes, SReadOptions{});
    if (!surface)
        surface = Read(file, bytes, SReadOptions{{}, 1e-6});
    if (!surface)
        return;
    for (const EFormat format : {EFormat::Sdf, EFormat::BinarySdf}) {
        const auto copy = Read(file, WriteSurface(*surface, format, {}), SReadOptions{});
        Expect(copy && copy->points == surface->points && copy->lines == surface->lines,
               "a copy is as large");
        Expect(IsSame(copy->dx, surface->dx) && IsSame(copy->dy, surface->dy),
               "a copy has the same spacings");
        for (std::size_t i = 0; i < surface->heights.size(); ++i)
            Expect(IsSame(copy->heights[i], surface->heights[i]), "a copy has the same heights");
    }
}

// Any description, in an archive that is whole: of one that is damaged nothing else is read.
void Fuzz::RunX3pDescription(std::string_view bytes)
{
#if defined(COMMONUI_WITH_X3P)
    static const CFuzzFile file("fuzz.surface");
    static const std::string c_points(4 * 8, '\0');
    Read(file, Zip({{"main.xml", std::string(bytes)}, {"bindata/data.bin", c_points}}), SReadOptions{});
#else
    static_cast<void>(bytes);
#endif
}
