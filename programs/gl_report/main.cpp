#include "programs/command_line/Arguments.h"
#include "programs/gl_report/Program.h"

#include <iostream>

int main(int argc, char** argv)
{
    const CommandLine::CArguments arguments(argc, argv);
    return GlReport::RunProgram(arguments, std::cout, std::cerr);
}
