#pragma once

#include "analysis/form/Levelling.h"
#include "analysis/grain/Grains.h"
#include "common/Unit.h"
#include "programs/command_line/CommandLine.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace SurfaceReport
{

using CommandLine::EUsage;

/// Which grains are measured.
struct SGrainOptions {
    double threshold; ///< height in m on the levelled surface
    CommonUI::Analysis::EGrainKind kind;
};

/// What the command line asks for.
struct SOptions {
    std::filesystem::path input;
    std::filesystem::path folder; ///< where the reports go; made if it does not exist
    /// The parameters by key; empty for those of the preferences, or without such for all that are computed.
    std::vector<std::string> parameters{};
    /// The unit factor of all lengths, areas and volumes; without one that of the preferences, or without
    /// such the one that suits each parameter.
    std::optional<CommonUI::CUnit::EUnitFactor> unit{};
    CommonUI::Analysis::ELevelling levelling = CommonUI::Analysis::ELevelling::None;
    std::optional<double> cutoff{}; ///< of the profile filter, m
    std::optional<SGrainOptions> grains{};
    std::filesystem::path preferences{}; ///< the file of choices; empty for none
    std::vector<std::string> sets{};     ///< changes of the choices, see EditPreferences
    /// Specifications of the settings sets that are applied before the analysis, in this order.
    std::vector<std::string> settings{};
    /// To list settings sets instead of analysing anything: the key of their type, empty for all types.
    std::optional<std::string> listSettings{};
    std::filesystem::path settingsFolder{}; ///< where custom settings lie; empty for the user's folder
    bool transpose = false;
    bool help = false;
};

/// How the program is called.
extern const char* const c_usage;

/// @param arguments without the program's name
/// @throws EUsage
SOptions ParseOptions(std::span<const char* const> arguments);

/// The unit of length that a text names.
/// @param option for the message
/// @throws EUsage when it names none
CommonUI::CUnit::EUnitFactor ParseUnit(const std::string& option, const std::string& text);

/// The pieces of a text between separators: always one more than there are separators.
std::vector<std::string> Split(std::string_view text, char separator);

} // namespace SurfaceReport
