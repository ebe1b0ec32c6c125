#include "programs/command_line/SurfaceOptions.h"

#include "programs/command_line/CommandLine.h"

namespace CommandLine
{

using CommonUI::Analysis::ELevelling;

void AddSurfaceOptions(CParser& parser, SSurfaceOptions& options, ELevelling& levelling)
{
    parser.AddInput(options.input);
    parser.AddHelp(options.help);
    parser.Add("--out", [&](auto& option, auto& path) { options.output = ParsePath(option, path); });
    parser.Add("--level", [&](auto& option, auto& word) {
        levelling = ParseWord<ELevelling>(
            option, word,
            {{"none", ELevelling::None}, {"mean", ELevelling::Mean}, {"plane", ELevelling::Plane}});
    });
}

void CheckSurfaceOptions(const SSurfaceOptions& options, const std::string& output)
{
    if (options.input.empty())
        throw EUsage("no input is given; see --help");
    if (options.output.empty())
        throw EUsage("no " + output + "; see --help");
}

} // namespace CommandLine
