#include "programs/command_line/Arguments.h"
#include "programs/surface_view/Program.h"

#include <iostream>

int main(int argc, char** argv)
{
    const CommandLine::CArguments arguments(argc, argv);
    return SurfaceView::RunProgram(arguments, std::cout, std::cerr);
}
