#pragma once

#include "analysis/form/Levelling.h"
#include "analysis/surface/Surface.h"

#include <string>

namespace Python
{

/// A surface as a script holds it.
struct SScriptSurface {
    CommonUI::Analysis::SSurface surface{};
    std::string sha256{}; ///< of the file from which it was read
};

/// The surface, of which a script may have changed the heights: its missing points are counted anew.
/// @throws std::invalid_argument for a height that the library does not compute with
const CommonUI::Analysis::SSurface& Checked(SScriptSurface& script);

/// What a levelling is called: "none", "mean" or "plane".
/// @throws std::invalid_argument
CommonUI::Analysis::ELevelling LevellingOf(const std::string& name);

} // namespace Python
