#pragma once

#include "view/Drawing.h"

/// @file
/// What the sources that draw share.

namespace SurfaceView
{

/// @throws std::runtime_error unless a step succeeded
void Require(bool succeeded);

void SetColor(CommonUI::SColor color);

/// Draws the block with its walls and the surface.
/// @param grains null for none
void DrawBlock(const SScene& scene, const CMeshBuffers& mesh, const CColorTexture& texture,
               const CGrainTexture* grains);

} // namespace SurfaceView
