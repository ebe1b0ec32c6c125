#include "programs/gl_report/Program.h"

#include "common/file/FileBytes.h"
#include "programs/command_line/CommandLine.h"
#include "programs/command_line/Parser.h"
#include "programs/gl_report/Report.h"

#include <filesystem>
#include <ostream>
#include <stdexcept>

namespace GlReport
{

namespace
{

const char* const c_usage = R"(Reports what support asks for about OpenGL on this machine.

usage: gl_report [OPTION...]

  --out FILE  writes the report to a file instead

The report is that of an off-screen context; without one, the exit status is 2.
)";

struct SOptions {
    std::filesystem::path output{}; // empty for the terminal
    bool help = false;
};

SOptions ParseOptions(std::span<const char* const> arguments)
{
    SOptions options;
    CommandLine::CParser parser;
    parser.AddHelp(options.help);
    parser.Add("--out",
               [&](auto& option, auto& file) { options.output = CommandLine::ParsePath(option, file); });
    parser.Parse(arguments);
    return options;
}

// @return the exit status of the program
int Run(const SOptions& options, std::ostream& out, std::ostream& err, const FContextMaker& makeContext)
{
    std::string reason;
    const auto context = makeContext(64, 64, reason);
    if (!context) {
        err << "gl_report: there is no OpenGL to report on: " << reason << "\n";
        return 2;
    }
    const std::string report = MakeReport(context->GetPixelBits());
    if (options.output.empty()) {
        if (!(out << report << std::flush))
            throw std::runtime_error("the report cannot be written");
        return 0;
    }
    CommonUI::CStr failure;
    if (!CommonUI::ReplaceFileBytes(options.output.u16string(), report, failure))
        throw std::runtime_error(options.output.string() + ": " + failure.ToUtf8());
    return 0;
}

} // namespace

int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err,
               const FContextMaker& makeContext)
{
    return CommandLine::Run("gl_report", err, [&] {
        const SOptions options = ParseOptions(arguments);
        if (!options.help)
            return Run(options, out, err, makeContext);
        out << c_usage;
        return 0;
    });
}

} // namespace GlReport
