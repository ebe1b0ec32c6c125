#pragma once

#include "view/Axis.h"
#include "view/Font.h"
#include "view/View.h"

#include <array>
#include <optional>
#include <vector>

namespace SurfaceView
{

/// A line of text in the window.
struct SLabel {
    CommonUI::CStr text{};
    int height = 0;          ///< of the font, pixels
    CommonUI::SRect place{}; ///< y upwards, so that the top is the lower bound
};

/// A line between two pixels.
struct SStroke {
    SPixel from{};
    SPixel to{};
};

/// Where everything is in the picture, y upwards.
struct SLayout {
    SView view{};
    std::array<SAxis, 3> axes{}; ///< of x, y and z, with values from the lower end of each
    std::vector<SLabel> labels{};
    std::vector<SStroke> strokes{};
    CommonUI::SRect legend{}; ///< the bar of the colour scale, lowest height at its lower bound
    int lineWidth = 1;
};

/// What a picture tells about its surface.
struct SPictureText {
    CommonUI::CStr title{};
    CommonUI::CStr subtitle{};
};

/// How a picture that is one of many shows the block.
struct SFraming {
    double zoom = 1;    ///< see CenterView
    SPixel pan{};       ///< see Pan
    int fontHeight = 0; ///< in pixels of the window; 0 for one that suits its size
};

/// Title, block with labelled axes, and colour legend, without one over the other: of two marks' texts that
/// would overlap the second is left out, and the block takes the room that is left.
/// @param size of the window in pixels
/// @param scale how many pixels of the window make one of the picture
/// @param text lines that are empty take no room
/// @param framing where the picture is one of many from all sides; what leaves the room for the block is then
///     cut off. Without it the view is that of FitView.
SLayout MakeLayout(const SBox& box, const SDirection& direction, bool orthographic, const SPictureText& text,
                   CommonUI::SSize size, int scale, const CFont& font,
                   const std::optional<SFraming>& framing = {});

} // namespace SurfaceView
