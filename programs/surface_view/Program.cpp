#include "programs/surface_view/Program.h"

#include "analysis/surface/Decimate.h"
#include "formats/SurfaceReader.h"
#include "platform/Terminal.h"
#include "programs/command_line/CommandLine.h"
#include "programs/command_line/ProgressLine.h"
#include "programs/surface_view/Animation.h"
#include "programs/surface_view/ColorTable.h"
#include "programs/surface_view/FreeTypeFont.h"
#include "programs/surface_view/Options.h"
#include "programs/surface_view/Picture.h"
#include "view/Drawing.h"
#include "view/StackDepths.h"

#include <iostream>
#include <memory>
#include <optional>
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
            .subtitle = LengthLabel(box.width) + u" × " + LengthLabel(box.depth) + u", heights × " +
                        FactorText(box.exaggeration)};
}

// Draws a surface from whatever direction.
class CPainter
{
public:
    CPainter(const SOptions& options, const FContextMaker& makeContext)
        : m_isOrthographic(options.orthographic)
        , m_scale(SuitableScale(options.size))
        , m_size{.cx = options.size.cx * m_scale, .cy = options.size.cy * m_scale}
    {
        m_scene.colors = GetColorTable(options.colorScale);
        const SSurface surface = ReadLevelled(options);
        m_scene.box = MakeBoxOf(surface, options);
        m_scene.mesh = MakeMesh(Decimate(surface, c_mostPoints), m_scene.box);
        m_text = TextOf(surface, m_scene.box);
        std::string reason;
        m_context = makeContext(m_size.cx, m_size.cy, reason);
        if (!m_context)
            throw std::runtime_error("there is no OpenGL to draw with: " + reason);
        m_before = ReadStackDepths();
    }

    // @param framing where the picture is one of an animation
    SPicture Paint(const SDirection& direction, const std::optional<SFraming>& framing = {})
    {
        m_scene.eye = direction.ToEye();
        m_scene.layout =
            MakeLayout(m_scene.box, direction, m_isOrthographic, m_text, m_size, m_scale, m_font, framing);
        Draw(m_scene, m_size, m_font);
        CheckRestored(m_before, ReadStackDepths());
        return ScaleDown(ReadPixels(m_size), m_scale);
    }

    const SStackDepths& GetStackDepths() const { return m_before; }

private:
    bool m_isOrthographic;
    int m_scale;
    SSize m_size;
    CFreeTypeFont m_font{};
    SScene m_scene{};
    SPictureText m_text{};
    std::unique_ptr<Offscreen::CContext> m_context{};
    SStackDepths m_before{};
};

void Animate(const SOptions& options, std::ostream& out, std::ostream& err, const FContextMaker& makeContext)
{
    const CommonUI::SAnimationSettings animation = LoadAnimation(options.animation);
    CPainter painter(options, makeContext);
    CommandLine::CProgressLine line("drawing", &err == &std::cerr && CommonUI::IsErrorStreamTerminal(), err);
    const int frames = WriteAnimation(
        animation, options.output,
        [&](const SDirection& direction, double zoom) {
            return painter.Paint(direction, SFraming{.zoom = zoom});
        },
        [&](double fraction) { line.Show(fraction); });
    out << "State restored: " << Describe(painter.GetStackDepths()) << "\n"
        << "Frames written: " << frames << ", " << CommandLine::ToTerminal(options.output.string()) << "\n";
}

void Run(const SOptions& options, std::ostream& out, const FContextMaker& makeContext)
{
    CPainter painter(options, makeContext);
    WritePng(painter.Paint(options.direction), options.output);
    out << "State restored: " << Describe(painter.GetStackDepths()) << "\n"
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
        else if (options.animation.empty())
            Run(options, out, makeContext);
        else
            Animate(options, out, err, makeContext);
        return 0;
    });
}

} // namespace SurfaceView
