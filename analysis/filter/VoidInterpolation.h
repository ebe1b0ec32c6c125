#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

namespace CommonUI::Analysis
{

/// Gives missing points the heights of the membrane that hangs in their neighbours: the solution of Laplace's
/// equation between them, with the spacings of the points, to a millionth of the heights' range or better. It
/// goes nowhere beyond the heights around a void, so that no peak or pit comes from it, and continues a
/// tilted plane; at the border of the surface it ends level.
///
/// Takes time about proportional to the missing points, besides that of looking at all.
/// @throws ENoPoints for a surface with points that are all missing
COMMONUIANALYSIS_API void InterpolateVoids(SSurface& surface);

} // namespace CommonUI::Analysis
