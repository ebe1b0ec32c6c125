#pragma once

#include "programs/offscreen/OffscreenContext.h"

namespace Offscreen
{

/// Asks the current context.
SPixelBits ReadPixelBits();

} // namespace Offscreen
