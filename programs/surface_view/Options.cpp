#include "programs/surface_view/Options.h"

#include "common/NumberText.h"
#include "common/Range.h"

#include <string_view>
#include <utility>

namespace SurfaceView
{

using CommandLine::CArguments;
using CommandLine::ParseLevelling;
using CommandLine::ParseWord;

const char* const c_usage = R"(Draws a measured surface in three dimensions, without a display.

usage: surface_view INPUT --out FILE.png [OPTION...]

  INPUT              a surface: ISO 25178-71 ASCII, or a text matrix with a "#" header
  --out FILE.png     the picture
  --size WxH         its width and height in pixels, 100 to 4096 each; 900x600 without it
  --projection NAME  perspective (without it) or orthographic
  --color NAME       a built-in colour scale by key or name: "Default 3D" (without it), Glow, Grey ...
  --azimuth ANGLE    from where the surface is looked at, in degrees around it; 30 without it
  --elevation ANGLE  and in degrees above it, 0 to 90; 35 without it
  --zscale FACTOR    how many times heights are drawn higher than lengths
  --level LEVEL      what is subtracted first: none, the mean height, or the least-squares plane
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
    constexpr CommonUI::CRange<long long> range(100, 4096);
    long long value = 0;
    if (CommonUI::ParseInteger(CommonUI::CStr::FromUtf8(text), value) && range.Contains(value))
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

// Reads the command line option by option.
class CParser
{
public:
    explicit CParser(std::span<const char* const> arguments)
        : m_arguments(arguments)
    {
    }

    SOptions Parse()
    {
        while (!m_arguments.IsAtEnd())
            Take(m_arguments.Take());
        if (!m_options.help)
            Check();
        return m_options;
    }

private:
    void Take(const std::string& argument)
    {
        if (argument == "--help")
            m_options.help = true;
        else if (argument.starts_with("--"))
            TakeValue(argument);
        else if (m_options.input.empty())
            m_options.input = argument;
        else
            throw EUsage("\"" + argument + "\" is one input too many");
    }

    void TakeValue(const std::string& option)
    {
        if (option == "--out")
            m_options.output = m_arguments.TakeValue(option);
        else if (option == "--size")
            m_options.size = ParseSize(m_arguments.TakeValue(option));
        else if (option == "--projection")
            m_options.orthographic = ParseWord<bool>(option, m_arguments.TakeValue(option),
                                                     {{"perspective", false}, {"orthographic", true}});
        else if (option == "--color")
            m_options.colorScale = m_arguments.TakeValue(option);
        else if (option == "--azimuth")
            m_options.azimuth = ParseNumber(option, m_arguments.TakeValue(option), {-360, 360});
        else if (option == "--elevation")
            m_options.elevation = ParseNumber(option, m_arguments.TakeValue(option), {0, 90});
        else if (option == "--zscale")
            m_options.zScale = ParseNumber(option, m_arguments.TakeValue(option), {0.001, 1e9});
        else if (option == "--level")
            m_options.levelling = ParseLevelling(option, m_arguments.TakeValue(option));
        else
            throw EUsage("there is no option \"" + option + "\"");
    }

    void Check() const
    {
        if (m_options.input.empty())
            throw EUsage("no input is given; see --help");
        if (m_options.output.empty())
            throw EUsage("no file is given for the picture; see --help");
    }

    CArguments m_arguments;
    SOptions m_options;
};

} // namespace

SOptions ParseOptions(std::span<const char* const> arguments)
{
    return CParser(arguments).Parse();
}

} // namespace SurfaceView
