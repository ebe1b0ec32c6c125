#include "programs/command_line/CommandLine.h"
#include "programs/surface_report/Options.h"
#include "tests/fuzz/Targets.h"

#include <string>
#include <vector>

// Any arguments, one in each line: a call is understood, or refused with a sentence.
void Fuzz::RunCommandLine(std::string_view bytes)
{
    std::vector<std::string> lines(1);
    for (const char byte : bytes)
        if (byte == '\n')
            lines.emplace_back();
        else if (byte != '\0') // which no argument can have
            lines.back() += byte;
    std::vector<const char*> arguments;
    arguments.reserve(lines.size());
    for (const std::string& line : lines)
        arguments.push_back(line.c_str());
    try {
        const SurfaceReport::SOptions options = SurfaceReport::ParseOptions(arguments);
        Expect(options.inputs.empty() || options.inputs.front() == options.input,
               "the first input is the input");
    } catch (const CommandLine::EUsage& error) {
        Expect(*error.what() != '\0', "a refusal has a reason");
    }
}
