#pragma once

#include "analysis/form/Levelling.h"
#include "common/Rect.h"
#include "programs/command_line/SurfaceOptions.h"
#include "view/View.h"

#include <optional>
#include <span>
#include <string>

namespace SurfaceView
{

/// What the command line asks for.
struct SOptions : CommandLine::SSurfaceOptions {
    CommonUI::SSize size{.cx = 900, .cy = 600}; ///< of the picture in pixels
    bool orthographic = false;
    std::string colorScale = "Default 3D";                ///< key or display text of a built-in colour scale
    SDirection direction{.azimuth = 30, .elevation = 35}; ///< of a single picture; the elevation is 0 to 90
    bool hasDirection = false;                            ///< whether it was asked for
    std::string animation{};                              ///< a user specification; empty for one picture
    /// How many times heights are drawn higher than lengths; without it, what gives the surface a good shape.
    std::optional<double> zScale{};
    CommonUI::Analysis::ELevelling levelling = CommonUI::Analysis::ELevelling::None;
};

/// How the program is called.
extern const char* const c_usage;

/// @param arguments without the program's name
/// @throws CommandLine::EUsage
SOptions ParseOptions(std::span<const char* const> arguments);

} // namespace SurfaceView
