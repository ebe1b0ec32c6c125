#pragma once

#include "common/Base3D.h"
#include "common/Rect.h"
#include "view/Mesh.h"

#include <array>

namespace SurfaceView
{

/// A place in the block in which the surface is drawn.
using SPoint = CommonUI::SBase3D<double>;

/// A place in the window, in pixels from its lower left corner.
struct SPixel {
    double x = 0;
    double y = 0;
};

/// A half line in the block.
struct SRay {
    SPoint origin{};
    SPoint direction{}; ///< of any length
};

/// How the block is looked at: what OpenGL is told, and where it will draw.
struct SView {
    std::array<double, 16> modelView{}; ///< column by column
    bool orthographic = false;
    double fieldOfView = 0; ///< angle across the shorter side of the viewport, degrees
    double nearPlane = 0;   ///< distances from the eye
    double farPlane = 0;
    CommonUI::SRect viewport{}; ///< y upwards, so that the top is the lower bound

    /// The pixel on which a point falls.
    SPixel Project(const SPoint& point) const;
    /// All points that fall on a pixel.
    SRay Unproject(const SPixel& pixel) const;
};

/// From where the block is looked at.
struct SDirection {
    double azimuth = 0;   ///< degrees anticlockwise around it; from the side of the lowest y at 0
    double elevation = 0; ///< degrees above it

    /// The direction from the block to the eye, of length 1.
    SPoint ToEye() const;
};

/// The view in which the whole block just fits into the viewport, in its middle.
SView FitView(const SBox& box, const SDirection& direction, bool orthographic,
              const CommonUI::SRect& viewport);

/// Moves what is seen over the window.
/// @param shares of the shorter side of the viewport, y upwards
void Pan(SView& view, const SPixel& shares);

/// The view from the distance at which the block fits whichever way it is turned, so that it keeps its size
/// while it turns; its middle is that of the viewport.
/// @param zoom 1 shows the whole block, 2 half of its width
SView CenterView(const SBox& box, const SDirection& direction, bool orthographic,
                 const CommonUI::SRect& viewport, double zoom);

} // namespace SurfaceView
