#pragma once

#include "common/Color.h"
#include "programs/surface_view/Layout.h"

#include <vector>

namespace SurfaceView
{

/// All that a picture shows.
struct SScene {
    SBox box{};
    SMesh mesh{};
    std::vector<CommonUI::SColor> colors{}; ///< from the lowest to the highest point
    SPoint eye{};                           ///< the direction to it
    SLayout layout{};
};

/// Draws into the current context, the state of which is the same afterwards, also when that fails.
/// @throws std::runtime_error when OpenGL complains; the library has then reported why
void Draw(const SScene& scene, CommonUI::SSize size, const CFont& font);

/// What the current context shows.
SPixels ReadPixels(CommonUI::SSize size);

} // namespace SurfaceView
