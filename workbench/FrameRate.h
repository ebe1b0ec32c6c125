#pragma once

#include <cstddef>
#include <string>

namespace Workbench
{

class CWorkbenchWindow;

/// What turning the block of the surface in front once around its axis has shown.
struct SFrameRate {
    double framesPerSecond = 0;
    double longestSeconds = 0;   ///< for the slowest picture, with what was made ready for it
    double processorSeconds = 0; ///< of all threads for a picture: what remains where other programs are busy
    std::size_t vertices = 0;    ///< of the level of detail that the last pictures had
    std::size_t triangles = 0;
    std::size_t bytesSent = 0;
    double stillSeconds = 0; ///< for a picture that stands still, at full detail
    std::size_t stillVertices = 0;
    std::size_t stillTriangles = 0;
};

/// Shows the block alone, of 1280 by 800 pixels, and turns it in steps of some degrees, each of which is
/// drawn before the next.
/// @param zoom 1 shows all of it
/// @return nothing measured (0 frames) where the block cannot be drawn
SFrameRate MeasureFrameRate(CWorkbenchWindow& window, int frames, double zoom = 1);

/// In a line for the console.
std::string Describe(const SFrameRate& rate);

} // namespace Workbench
