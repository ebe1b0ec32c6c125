#pragma once

#include "programs/offscreen/OffscreenContext.h"

#include <string>

namespace GlReport
{

/// What support asks for, in UTF-8: driver, pixel store, stacks, pixel format and extensions of the current
/// context.
/// @param bits of the context's pixels
std::string MakeReport(const Offscreen::SPixelBits& bits);

} // namespace GlReport
