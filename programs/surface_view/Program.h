#pragma once

#include "programs/offscreen/OffscreenContext.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>

namespace SurfaceView
{

/// Makes the context that is drawn into: Offscreen::CContext::Make, or what stands in for it.
using FContextMaker =
    std::function<std::unique_ptr<Offscreen::CContext>(int width, int height, std::string& reason)>;

/// The program behind its main function.
/// @param arguments without the program's name
/// @param err receives one line for what is wrong
/// @return the exit status: 0, or 1 for a reason that `err` was told; there is no new picture then
int RunProgram(std::span<const char* const> arguments, std::ostream& out, std::ostream& err,
               const FContextMaker& makeContext = Offscreen::CContext::Make);

} // namespace SurfaceView
