#include "programs/surface_view/Program.h"

#include "formats/SurfaceReader.h"
#include "programs/command_line/CommandLine.h"
#include "programs/surface_view/ColorTable.h"
#include "programs/surface_view/Decimate.h"
#include "programs/surface_view/Drawing.h"
#include "programs/surface_view/Options.h"
#include "programs/surface_view/Picture.h"
#include "programs/surface_view/StackDepths.h"

#include <ostream>

namespace SurfaceView
{

using CommonUI::CStr;
using CommonUI::SSize;
using CommonUI::Analysis::SSurface;

namespace
{

SSurface ReadLevelled(const SOptions& options)
{
    SSurface surface = CommonUI::Formats::ReadSurface(options.input);
    CommonUI::Analysis::Level(surface, options.levelling);
    return surface;
}

SBox MakeBoxOf(const SSurface& surface, const SOptions& options)
{
    try {
        return MakeBox(surface, options.zScale.value_or(0));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(options.input.string() + ": " + error.what());
    }
}

SPictureText TextOf(const SSurface& surface, const SBox& box)
{
    CStr title = CStr::FromUtf8(surface.fileName);
    if (!surface.channel.empty())
        title += u" – " + CStr::FromUtf8(surface.channel);
    return {.title = title,
            .subtitle = LengthText(box.width) + u" × " + LengthText(box.depth) + u", heights × " +
                        FactorText(box.exaggeration)};
}

SScene MakeScene(const SOptions& options, SSize size, int scale, const CFont& font)
{
    std::vector<CommonUI::SColor> colors = GetColorTable(options.colorScale);
    const SSurface surface = ReadLevelled(options);
    const SBox box = MakeBoxOf(surface, options);
    const SDirection direction{.azimuth = options.azimuth, .elevation = options.elevation};
    return {.box = box,
            .mesh = MakeMesh(Decimate(surface, c_mostPoints), box),
            .colors = std::move(colors),
            .eye = direction.ToEye(),
            .layout =
                MakeLayout(box, direction, options.orthographic, TextOf(surface, box), size, scale, font)};
}

void Run(const SOptions& options, std::ostream& out, const FContextMaker& makeContext)
{
    const int scale = SuitableScale(options.size);
    const SSize size{.cx = options.size.cx * scale, .cy = options.size.cy * scale};
    const CFont font;
    const SScene scene = MakeScene(options, size, scale, font);

    std::string reason;
    const auto context = makeContext(size.cx, size.cy, reason);
    if (!context)
        throw std::runtime_error("there is no OpenGL to draw with: " + reason);
    const SStackDepths before = ReadStackDepths();
    Draw(scene, size, font);
    CheckRestored(before, ReadStackDepths());
    WritePng(ScaleDown(ReadPixels(size), scale), options.output);
    out << "State restored: " << Describe(before) << "\n"
        << "Picture written: " << CommandLine::ToTerminal(options.output.string()) << "\n";
}

} // namespace

int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err,
               const FContextMaker& makeContext)
{
    return CommandLine::Run("surface_view", err, [&] {
        const SOptions options = ParseOptions(arguments);
        if (options.help)
            out << c_usage;
        else
            Run(options, out, makeContext);
        return 0;
    });
}

} // namespace SurfaceView
