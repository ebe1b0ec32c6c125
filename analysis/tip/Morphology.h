#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

namespace CommonUI::Analysis
{

/// The image that a tip makes of a surface: where its apex is while it touches the surface, the largest of
/// S(x + d) + P(d) over all d of the tip (dilation).
/// @param tip heights P above the apex of the tip turned over, which lies in the middle point: 0 there,
///     below 0 around it. It has odd numbers of points and lines and the spacings of the surface. Missing
/// points are
///     beyond the tip.
/// @return what is missing stays missing
COMMONUIANALYSIS_API SSurface Dilate(const SSurface& surface, const SSurface& tip);

/// The surface that is left where a tip has been taken from its image, the smallest of I(x - d) - P(d)
/// (erosion): the true surface where the tip has touched it, and above it elsewhere.
COMMONUIANALYSIS_API SSurface Erode(const SSurface& image, const SSurface& tip);

} // namespace CommonUI::Analysis
