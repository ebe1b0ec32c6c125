#pragma once

#include "programs/surface_view/Drawing.h"

/// @file
/// What the sources that draw share.

namespace SurfaceView
{

class CColorTexture;

constexpr CommonUI::SColor c_frame{120, 126, 134};
constexpr CommonUI::SColor c_text{32, 36, 42};

/// @throws std::runtime_error unless a step succeeded
void Require(bool succeeded);

void SetColor(CommonUI::SColor color);

/// Draws the block with its walls and the surface.
void DrawBlock(const SScene& scene, const CColorTexture& texture);

} // namespace SurfaceView
