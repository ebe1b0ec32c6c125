#pragma once

#include "measurement/Request.h"
#include "programs/command_line/SurfaceOptions.h"
#include "programs/surface_report/OutputFiles.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace SurfaceReport
{

/// What the command line asks for.
struct SOptions : CommandLine::SSurfaceOptions {
    /// All inputs; `input` is the first of them.
    std::vector<std::filesystem::path> inputs{};
    bool isMany = false;  ///< a table of many files is asked for
    bool each = false;    ///< with a report of each of them
    bool resumes = false; ///< what is there of that table is taken over
    bool merges = false;  ///< the inputs are folders of such tables, which become one
    CommonUI::Measurement::SRequest request{};
    std::filesystem::path preferences{}; ///< the file of choices; empty for none
    std::vector<CommonUI::CStr> sets{};  ///< changes of the choices, see EditPreferences
    /// Name the settings sets that are applied before the analysis, in this order.
    std::vector<CommonUI::CStr> settings{};
    /// Names the batch sequence that is run; empty for none.
    CommonUI::CStr batch{};
    /// Names the set that says which grains are measured; empty for none.
    CommonUI::CStr grainSet{};
    /// To list settings sets instead of analysing anything: the key of their type, empty for all types.
    std::optional<std::string> listSettings{};
    std::filesystem::path settingsFolder{}; ///< where custom settings lie; empty for the user's folder
    std::filesystem::path second{};         ///< the surface that an analysis compares with; empty for none
    bool transpose = false;
    bool hasPictures = true; ///< whether the page has pictures
    SReportForms forms{};
    std::optional<double> spacing{}; ///< of a profile whose file has heights alone, m
    std::filesystem::path save{};    ///< the file that gets the processed surface; empty for none
    bool isBinary = false;           ///< the binary form for that file
    bool replacesInput = false;      ///< it may be the input
};

/// How the program is called.
extern const char* const c_usage;

/// @param arguments without the program's name
/// @throws CommandLine::EUsage
SOptions ParseOptions(std::span<const char* const> arguments);

} // namespace SurfaceReport
