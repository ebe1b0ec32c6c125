#include "examples/gl_report/Program.h"

#include "common/FileBytes.h"
#include "examples/gl_report/Report.h"

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
    std::filesystem::path output{}; ///< empty for the terminal
    bool help = false;
};

/// There is no context; the message says why.
class ENoContext : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

SOptions ParseOptions(std::span<const char* const> arguments)
{
    SOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string argument = arguments[i];
        if (argument == "--help")
            options.help = true;
        else if (argument != "--out")
            throw std::runtime_error("there is no option \"" + argument + "\"");
        else if (++i == arguments.size() || *arguments[i] == '\0')
            throw std::runtime_error("--out needs a value");
        else
            options.output = arguments[i];
    }
    return options;
}

void Run(const SOptions& options, std::ostream& out, const CContextMaker& makeContext)
{
    std::string reason;
    const auto context = makeContext(64, 64, reason);
    if (!context)
        throw ENoContext("there is no OpenGL to report on: " + reason);
    const std::string report = MakeReport(context->GetPixelBits());
    if (options.output.empty()) {
        if (!(out << report << std::flush))
            throw std::runtime_error("the report cannot be written");
        return;
    }
    CommonUI::CStr failure;
    if (!CommonUI::ReplaceFileBytes(options.output.u16string(), report, failure))
        throw std::runtime_error(options.output.string() + ": " + failure.ToUtf8());
}

} // namespace

int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err,
               const CContextMaker& makeContext)
{
    try {
        const SOptions options = ParseOptions(arguments);
        if (options.help)
            out << c_usage;
        else
            Run(options, out, makeContext);
        return 0;
    } catch (const ENoContext& error) {
        err << "gl_report: " << error.what() << "\n";
        return 2;
    } catch (const std::exception& error) {
        err << "gl_report: " << error.what() << "\n";
        return 1;
    }
}

} // namespace GlReport
