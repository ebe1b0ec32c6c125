#include "programs/command_line/Arguments.h"
#include "programs/make_sample/SampleSurface.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

// Writes the sample surface to the file named on the command line.
int main(int argc, char** argv)
{
    const CommandLine::CArguments arguments(argc, argv);
    const std::span<const char* const> names = arguments;
    if (names.size() != 1 || *names[0] == '-') { // which would be an option
        std::cerr << "usage: make_sample FILE\n";
        return 2;
    }
    const std::string_view name = names[0];
    std::ofstream stream(std::filesystem::path(std::u8string(name.begin(), name.end())), std::ios::binary);
    stream << MakeSample::MakeSampleSurface() << std::flush;
    if (!stream) {
        std::cerr << name << ": cannot be written\n";
        return 1;
    }
}
