#pragma once

#include "../../export/Export.h"
#include "Surface.h"

#include <cstddef>

namespace CommonUI::Analysis
{

/// A surface of at most so many points along x and y, each the mean of the points around it; it keeps its
/// size. One that is small enough stays as it is.
/// @param maximum at least 2
COMMONUIANALYSIS_API SSurface Decimate(const SSurface& surface, std::size_t maximum);

} // namespace CommonUI::Analysis
