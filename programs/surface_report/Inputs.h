#pragma once

#include <filesystem>
#include <vector>

namespace SurfaceReport
{

/// A file that is reported on, one of many.
struct SInputFile {
    std::filesystem::path path; ///< by which it is opened
    std::filesystem::path
        report; ///< relative: where its report lies in the folder of reports, without extension
};

/// Whether the inputs of a command line are one file, to be reported on alone.
bool IsOneFile(const std::vector<std::filesystem::path>& inputs);

/// The path in full without links and dots, as far as it can be looked at.
std::filesystem::path Canonical(const std::filesystem::path& path);

/// The files that are meant: files themselves, those of folders and what lies below them with the extensions
/// .sdf, .x3p and .txt, those that match a pattern with * and ? in its last part, and all that a list "@FILE"
/// names, one to a line. Each file once, in the order given and within folders in that of their names. No two
/// have one report.
/// @param output the folder of reports, which is left out
/// @throws CommandLine::EUsage for a pattern that nothing matches, a list that cannot be read, and the folder
///     of reports
std::vector<SInputFile> FindInputs(const std::vector<std::filesystem::path>& inputs,
                                   const std::filesystem::path& output);

} // namespace SurfaceReport
