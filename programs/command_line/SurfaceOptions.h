#pragma once

#include "analysis/form/Levelling.h"
#include "programs/command_line/Parser.h"

#include <filesystem>
#include <string>

namespace CommandLine
{

/// What every program is told that makes something of a surface.
struct SSurfaceOptions {
    std::filesystem::path input{};
    std::filesystem::path output{}; ///< a file or a folder, as the program says
    bool help = false;
};

/// Adds INPUT, --out, --help and --level, which all such programs have.
void AddSurfaceOptions(CParser& parser, SSurfaceOptions& options, CommonUI::Analysis::ELevelling& levelling);

/// @param output what is given by --out, such as "file is given for the picture"
/// @throws EUsage where the input or the output was not given
void CheckSurfaceOptions(const SSurfaceOptions& options, const std::string& output);

} // namespace CommandLine
