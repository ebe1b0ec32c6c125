#include "programs/surface_view/Program.h"

#include <iostream>

int main(int argc, char** argv)
{
    return SurfaceView::RunProgram({argv + 1, static_cast<std::size_t>(argc - 1)}, std::cout, std::cerr);
}
