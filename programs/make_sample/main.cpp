#include "programs/make_sample/SampleSurface.h"

#include <fstream>
#include <iostream>

// Writes the sample surface to the file named on the command line.
int main(int argc, char** argv)
{
    if (argc != 2 || *argv[1] == '-') { // which would be an option
        std::cerr << "usage: make_sample FILE\n";
        return 2;
    }
    std::ofstream stream(argv[1], std::ios::binary);
    stream << MakeSample::MakeSampleSurface() << std::flush;
    if (!stream) {
        std::cerr << argv[1] << ": cannot be written\n";
        return 1;
    }
}
