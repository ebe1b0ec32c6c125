#pragma once

#include "programs/surface_report/Program.h"

#include <sstream>
#include <string>
#include <vector>

namespace Faults
{

/// Runs surface_report in this process.
/// @param messages gets what it tells of errors
/// @return its exit status
inline int RunReport(const std::vector<std::string>& words, std::string& messages)
{
    std::vector<const char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(word.c_str());
    std::ostringstream out;
    std::ostringstream err;
    const int status = SurfaceReport::RunProgram(arguments, out, err);
    messages = err.str();
    return status;
}

} // namespace Faults
