#pragma once

#include "analysis/surface/Surface.h"

#include <cstddef>

namespace SurfaceView
{

/// More points along a side than this are not told apart in a picture.
constexpr std::size_t c_mostPoints = 768;

/// A surface of at most so many points along x and y, each the mean of the points around it; it keeps its
/// size. One that is small enough stays as it is.
CommonUI::Analysis::SSurface Decimate(const CommonUI::Analysis::SSurface& surface, std::size_t maximum);

} // namespace SurfaceView
