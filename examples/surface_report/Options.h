#pragma once

#include "common/Unit.h"
#include "examples/analysis/Levelling.h"

#include <filesystem>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace SurfaceReport
{

/// The command line cannot be understood; the message is one line.
class EUsage : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// What the command line asks for.
struct SOptions {
    std::filesystem::path input;
    std::filesystem::path folder; ///< where the reports go; made if it does not exist
    /// Keys of the roughness catalogue; empty for all that are computed.
    std::vector<std::string> parameters{};
    /// The unit factor of all lengths, areas and volumes; without one each parameter has the one that suits
    /// it.
    std::optional<CommonUI::CUnit::EUnitFactor> unit{};
    SurfaceAnalysis::ELevelling levelling = SurfaceAnalysis::ELevelling::None;
    bool transpose = false;
    bool help = false;
};

/// How the program is called.
extern const char* const c_usage;

/// @param arguments without the program's name
/// @throws EUsage
SOptions ParseOptions(std::span<const char* const> arguments);

} // namespace SurfaceReport
