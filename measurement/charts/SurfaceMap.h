#pragma once

#include "../../analysis/grain/Grains.h"
#include "../../analysis/surface/Surface.h"
#include "../../export/Export.h"
#include "../../settings/catalogue/BuiltInSetting.h"
#include "../../settings/readers/ColorScale.h"

#include <string>

namespace CommonUI::Measurement
{

/// A colour scale of the catalogue; the default one for another set.
COMMONUIMEASUREMENT_API SColorScale GetBuiltInColorScale(EBuiltInSetting setting);

/// Draws a surface as it is seen from above: x to the right, y upwards, each point a rectangle in the colour
/// of its height, with axes and the colour scale. Of a large surface the means of neighbouring points are
/// shown, 512 along a side. Missing points are hatched.
/// @param grains those of the surface, whose outlines are drawn, with the numbers of the largest; null for
///     none
/// @return an SVG element; empty for a surface without a valid point, and where the library is built without
///     libpng
COMMONUIMEASUREMENT_API std::string DrawSurfaceMap(const Analysis::SSurface& surface,
                                                   const SColorScale& colors,
                                                   const Analysis::SGrainMap* grains = nullptr);

} // namespace CommonUI::Measurement
