#pragma once

#include "../../analysis/surface/Surface.h"
#include "../../export/Export.h"
#include "../../settings/readers/ColorScale.h"

#include <string>

namespace CommonUI::Measurement
{

/// Draws a surface as a block in perspective: x to the right, y to the left, both away from the corner in
/// front, z upwards. Heights are exaggerated so that the block is a quarter as high as it is long, which the
/// picture states. A large surface is drawn with the means of neighbouring points, 48 along a side; where
/// points are missing there are holes.
/// @return an SVG element; empty for fewer than two points or lines, and without a valid point
COMMONUIMEASUREMENT_API std::string DrawPerspective(const Analysis::SSurface& surface,
                                                    const SColorScale& colors);

} // namespace CommonUI::Measurement
