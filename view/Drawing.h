#pragma once

#include "common/Color.h"
#include "view/Layout.h"

#include <cstddef>
#include <vector>

namespace SurfaceView
{

class CColorTexture;
class CGrainTexture;
class CMeshBuffers;

/// The colours of what is drawn around the surface.
struct SSceneColors {
    CommonUI::SColor ground{255, 255, 255};
    CommonUI::SColor wall{244, 245, 247};
    CommonUI::SColor grid{208, 212, 217};
    CommonUI::SColor frame{120, 126, 134};
    CommonUI::SColor text{32, 36, 42};
    CommonUI::SColor cutAlongX{150, 156, 164};
    CommonUI::SColor cutAlongY{124, 130, 139};
};

/// All that a picture shows.
struct SScene {
    SBox box{};
    SMesh mesh{};
    std::vector<CommonUI::SColor> colors{}; ///< from the lowest to the highest point
    SPoint eye{};                           ///< the direction to it
    SPoint light{-0.5, 0.6, 0.9};           ///< the direction to it, as seen from the eye: x right, y up
    SSceneColors surroundings{};
    SLayout layout{};
};

/// What the driver keeps from one picture to the next; what is null is sent to it for each one.
struct SKept {
    const CMeshBuffers* mesh = nullptr; ///< counts instead of that of the scene
    const CColorTexture* texture = nullptr;
    const CGrainTexture* grains = nullptr; ///< marked on the surface; null for none
};

/// What a picture costs the driver.
struct SFrameWork {
    std::size_t vertices = 0; ///< of the surface
    std::size_t triangles = 0;
    std::size_t bytesSent = 0; ///< of vertices, colours and labels
};

/// Draws into the current context, the state of which is the same afterwards, also when that fails.
/// @throws std::runtime_error when OpenGL complains; the library has then reported why
SFrameWork Draw(const SScene& scene, CommonUI::SSize size, const CFont& font, const SKept& kept = {});

/// What the current context shows.
SPixels ReadPixels(CommonUI::SSize size);

} // namespace SurfaceView
