#include "programs/surface_view/Options.h"

#include "common/NumberText.h"
#include "common/Range.h"
#include "programs/command_line/CommandLine.h"

namespace SurfaceView
{

using CommandLine::EUsage;
using CommandLine::ParseWord;

const char* const c_usage = R"(Draws a measured surface in three dimensions, without a display.

usage: surface_view INPUT --out FILE.png [OPTION...]
       surface_view INPUT --out FILE.gif --animation SPEC [OPTION...]

  INPUT              a surface: SDF (ISO 25178-71), X3P (ISO 25178-72), or a text matrix with a "#" header
  --out FILE.png     the picture; of an animation one for each frame, FILE-0001.png and on
  --out FILE.gif     the animation
  --size WxH         its width and height in pixels, 100 to 4096 each; 900x600 without it
  --projection NAME  perspective (without it) or orthographic
  --color NAME       a built-in colour scale by key or name: "Default 3D" (without it), Glow, Grey ...
  --azimuth ANGLE    from where the surface is looked at, in degrees around it; 30 without it
  --elevation ANGLE  and in degrees above it, 0 to 90; 35 without it
  --zscale FACTOR    how many times heights are drawn higher than lengths
  --level LEVEL      what is subtracted first: none, the mean height, or the least-squares plane
  --animation SPEC   flies around the surface, as a settings set says that is named by its identifier, its key or a
                     file: 'Animation[Id(AnimationQuickLaunchDemo)]'  'Animation[File(x.animation)]'
)";

namespace
{

double ParseNumber(const std::string& option, const std::string& text, CommonUI::CRange<double> range)
{
    double value = 0;
    if (CommonUI::ParseDouble(CommonUI::CStr::FromUtf8(text), value) && range.Contains(value))
        return value;
    throw EUsage(option + ": \"" + text + "\" is no number from " +
                 CommonUI::ShortestText(range.GetLower()).ToUtf8() + " to " +
                 CommonUI::ShortestText(range.GetUpper()).ToUtf8());
}

int ParsePixels(const std::string& text)
{
    constexpr CommonUI::CRange<long long> c_range(100, 4096);
    long long value = 0;
    if (CommonUI::ParseInteger(CommonUI::CStr::FromUtf8(text), value) && c_range.Contains(value))
        return static_cast<int>(value);
    throw EUsage("--size: \"" + text + "\" is no number of pixels from 100 to 4096");
}

CommonUI::SSize ParseSize(const std::string& text)
{
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos)
        throw EUsage("--size: \"" + text + "\" is no size such as 900x600");
    return {.cx = ParsePixels(text.substr(0, cross)), .cy = ParsePixels(text.substr(cross + 1))};
}

CommandLine::CParser MakeParser(SOptions& options)
{
    CommandLine::CParser parser;
    CommandLine::AddSurfaceOptions(parser, options, options.levelling);
    parser.Add("--size", [&](auto&, auto& size) { options.size = ParseSize(size); });
    parser.Add("--projection", [&](auto& option, auto& word) {
        options.orthographic =
            ParseWord<bool>(option, word, {{"perspective", false}, {"orthographic", true}});
    });
    parser.Add("--color", [&](auto&, auto& scale) { options.colorScale = scale; });
    parser.Add("--azimuth", [&](auto& option, auto& angle) {
        options.direction.azimuth = ParseNumber(option, angle, {-360, 360});
        options.hasDirection = true;
    });
    parser.Add("--elevation", [&](auto& option, auto& angle) {
        options.direction.elevation = ParseNumber(option, angle, {0, 90});
        options.hasDirection = true;
    });
    parser.Add("--animation", [&](auto&, auto& spec) { options.animation = spec; });
    parser.Add("--zscale", [&](auto& option, auto& factor) {
        options.zScale = ParseNumber(option, factor, {0.001, 1e9});
    });
    return parser;
}

} // namespace

SOptions ParseOptions(std::span<const char* const> arguments)
{
    SOptions options;
    MakeParser(options).Parse(arguments);
    if (options.help)
        return options;
    CommandLine::CheckSurfaceOptions(options, "file is given for the picture");
    if (!options.animation.empty() && options.hasDirection)
        throw EUsage("--animation: the eye moves, so there is no --azimuth and no --elevation");
    if (options.animation.empty() && options.output.extension() == ".gif")
        throw EUsage("--out: a GIF file is written of an animation, see --animation");
    return options;
}

} // namespace SurfaceView
