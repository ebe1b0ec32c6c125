#include "examples/surface_report/Options.h"

#include <string_view>

namespace SurfaceReport
{

using SurfaceAnalysis::ELevelling;

const char* const c_usage = R"(Reports the roughness of a measured surface.

usage: surface_report INPUT --out DIR [--parameters KEYS] [--unit UNIT] [--level none|mean|plane] [--transpose]

  INPUT              a surface: ISO 25178-71 ASCII, or a text matrix with a "#" header
  --out DIR          folder for report.txt (tab-separated) and report.html
  --parameters KEYS  parameters by their keys, separated by commas: Sa,Sq,Ra,4287Pz
  --unit UNIT        unit of lengths: pm, nm, um, mm, m, uin, mil, in ...
  --level LEVEL      what is subtracted first: none, the mean height, or the least-squares plane
  --transpose        parameters as columns of the surface's table and as rows of the profiles' table
)";

namespace
{

std::vector<std::string> SplitKeys(std::string_view text)
{
    std::vector<std::string> keys;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos; comma = text.find(',')) {
        keys.emplace_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    keys.emplace_back(text);
    return keys;
}

ELevelling ParseLevelling(const std::string& text)
{
    if (text == "none")
        return ELevelling::None;
    if (text == "mean")
        return ELevelling::Mean;
    if (text == "plane")
        return ELevelling::Plane;
    throw EUsage("--level: \"" + text + "\" is none of none, mean, plane");
}

CommonUI::CUnit::EUnitFactor ParseUnit(const std::string& text)
{
    CommonUI::CUnit unit;
    if (!CommonUI::CUnit::ParseLength(CommonUI::CStr::FromUtf8(text), unit))
        throw EUsage("--unit: \"" + text + "\" is no unit of length");
    return unit.GetFactor();
}

} // namespace

SOptions ParseOptions(std::span<const char* const> arguments)
{
    SOptions options;
    std::size_t next = 0;
    const auto valueOf = [&](const std::string& option) -> std::string {
        if (next == arguments.size())
            throw EUsage(option + " needs a value");
        return arguments[next++];
    };
    while (next < arguments.size()) {
        const std::string argument = arguments[next++];
        if (argument == "--help")
            options.help = true;
        else if (argument == "--transpose")
            options.transpose = true;
        else if (argument == "--out")
            options.folder = valueOf(argument);
        else if (argument == "--parameters")
            options.parameters = SplitKeys(valueOf(argument));
        else if (argument == "--unit")
            options.unit = ParseUnit(valueOf(argument));
        else if (argument == "--level")
            options.levelling = ParseLevelling(valueOf(argument));
        else if (argument.starts_with("--"))
            throw EUsage("there is no option \"" + argument + "\"");
        else if (options.input.empty())
            options.input = argument;
        else
            throw EUsage("\"" + argument + "\" is one input too many");
    }
    if (!options.help && options.input.empty())
        throw EUsage("no input is given; see --help");
    if (!options.help && options.folder.empty())
        throw EUsage("no folder is given for the reports; see --help");
    return options;
}

} // namespace SurfaceReport
