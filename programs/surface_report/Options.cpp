#include "programs/surface_report/Options.h"

#include "common/NumberText.h"

#include <cmath>
#include <string_view>

namespace SurfaceReport
{

using CommandLine::CArguments;
using CommandLine::ParseLevelling;
using CommonUI::Analysis::EGrainKind;

const char* const c_usage = R"(Reports the roughness or the grains of a measured surface.

usage: surface_report INPUT --out DIR [OPTION...]

  INPUT              a surface: ISO 25178-71 ASCII, or a text matrix with a "#" header
  --out DIR          folder for report.txt (tab-separated) and report.html
  --parameters KEYS  parameters by their keys, separated by commas: Sa,Sq,4287Ra,4287Pz
  --unit UNIT        unit of lengths: pm, nm, um, mm, m, uin, mil, in ...
  --level LEVEL      what is subtracted first: none, the mean height, or the least-squares plane
  --cutoff LENGTH    cut-off of the profile filter, such as 2.5um; a fifth of the profile without it
  --grains HEIGHT    measures the connected grains at or above a height, such as 50nm, instead
  --pores HEIGHT     measures the connected pores below a height instead
  --transpose        parameters as columns of the surface's table and as rows of the profiles' table
  --preferences FILE parameters, units, formats and statistics are those of an INI file, which is made with
                     the defaults where there is none
  --set CHANGE       changes the preferences and saves them, any number of times:
                     Sa=off  Sq.unit=um  Sq.format=Digits:4  Fractile=on:95  Sch=on:95
  --settings SPEC    applies a plane correction or a filter first, any number of times in the order given; the
                     surface's table then shows the raw surface beside the processed one. A set is named by its
                     identifier, its key or a file: 'PlaneCorr[Id(4)]'  'Filter[File(x.flt)]'
  --list-settings [TYPE]
                     prints the sets there are of a type, such as Filter, or of all, instead of a report
  --settings-folder DIR
                     the folder whose folder "Custom Settings" holds the user's own sets
)";

namespace
{

// A number with a unit of length behind it.
double ParseLength(const std::string& option, const std::string& text)
{
    const std::size_t unit = std::min(text.find_last_of("0123456789.") + 1, text.size());
    double value = 0;
    if (!CommonUI::ParseDouble(CommonUI::CStr::FromUtf8(text.substr(0, unit)), value) ||
        !std::isfinite(value))
        throw EUsage(option + ": \"" + text + "\" is no length such as 50nm");
    return value * CommonUI::CUnit::GetFactorValue(ParseUnit(option, text.substr(unit)));
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
        if (!m_options.help && !m_options.listSettings)
            Check();
        return m_options;
    }

private:
    void Take(const std::string& argument)
    {
        if (argument == "--help")
            m_options.help = true;
        else if (argument == "--transpose")
            m_options.transpose = true;
        else if (argument == "--list-settings")
            m_options.listSettings = m_arguments.TakeOptionalValue();
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
            m_options.folder = m_arguments.TakeValue(option);
        else if (option == "--parameters")
            m_options.parameters = Split(m_arguments.TakeValue(option), ',');
        else if (option == "--unit")
            m_options.unit = ParseUnit(option, m_arguments.TakeValue(option));
        else if (option == "--level")
            m_options.levelling = ParseLevelling(option, m_arguments.TakeValue(option));
        else if (option == "--cutoff")
            m_options.cutoff = ParseLength(option, m_arguments.TakeValue(option));
        else if (option == "--grains")
            TakeGrains(option, EGrainKind::Particle);
        else if (option == "--pores")
            TakeGrains(option, EGrainKind::Pore);
        else if (option == "--preferences")
            m_options.preferences = m_arguments.TakeValue(option);
        else if (option == "--set")
            m_options.sets.push_back(m_arguments.TakeValue(option));
        else if (option == "--settings")
            m_options.settings.push_back(m_arguments.TakeValue(option));
        else if (option == "--settings-folder")
            m_options.settingsFolder = m_arguments.TakeValue(option);
        else
            throw EUsage("there is no option \"" + option + "\"");
    }

    void TakeGrains(const std::string& option, EGrainKind kind)
    {
        if (m_options.grains)
            throw EUsage(option + ": either particles or pores are measured, at one height");
        m_options.grains = {ParseLength(option, m_arguments.TakeValue(option)), kind};
    }

    void Check() const
    {
        if (m_options.input.empty())
            throw EUsage("no input is given; see --help");
        if (m_options.folder.empty())
            throw EUsage("no folder is given for the reports; see --help");
        if (!m_options.sets.empty() && m_options.preferences.empty())
            throw EUsage("--set changes preferences, but no --preferences are given");
    }

    CArguments m_arguments;
    SOptions m_options;
};

} // namespace

SOptions ParseOptions(std::span<const char* const> arguments)
{
    return CParser(arguments).Parse();
}

CommonUI::CUnit::EUnitFactor ParseUnit(const std::string& option, const std::string& text)
{
    CommonUI::CUnit unit;
    if (!CommonUI::CUnit::ParseLength(CommonUI::CStr::FromUtf8(text), unit))
        throw EUsage(option + ": \"" + text + "\" is no unit of length");
    return unit.GetFactor();
}

std::vector<std::string> Split(std::string_view text, char separator)
{
    std::vector<std::string> pieces;
    for (std::size_t found = text.find(separator); found != std::string_view::npos;
         found = text.find(separator)) {
        pieces.emplace_back(text.substr(0, found));
        text.remove_prefix(found + 1);
    }
    pieces.emplace_back(text);
    return pieces;
}

} // namespace SurfaceReport
