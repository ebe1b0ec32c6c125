#pragma once

#include "common/Color.h"

#include <string>
#include <vector>

namespace SurfaceView
{

/// The colours of a built-in colour scale at evenly spaced heights, the lowest first.
/// @param name the key of the scale or its display text
/// @throws std::runtime_error, naming the scales that there are, for another name
std::vector<CommonUI::SColor> GetColorTable(const std::string& name);

} // namespace SurfaceView
