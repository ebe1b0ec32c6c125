#pragma once

#include "view/GrainPicture.h"
#include "view/Mesh.h"

namespace SurfaceView
{

/// The outlines of grains, to lie on a surface, as a texture of the current context, in which it is made and
/// goes.
class CGrainTexture
{
public:
    /// @param part of the points of the map
    /// @param side how many pixels the longer side of the part takes in the picture, about
    CGrainTexture(const CommonUI::Analysis::SGrainMap& map, const SGrainColors& colors, std::uint32_t chosen,
                  const SGridPart& part, std::size_t side);
    ~CGrainTexture();
    CGrainTexture(const CGrainTexture&) = delete;
    CGrainTexture& operator=(const CGrainTexture&) = delete;

    /// From now on it lies over what is drawn of a block, and over its texture; not where the driver has but
    /// one texture (GetGLEntryPoints gives no other). The caller saves the texture and enable attributes.
    void Bind(const SBox& box) const;

private:
    SGridPart m_part;
    std::size_t m_points; // of the map
    std::size_t m_lines;
    unsigned int m_name = 0;
};

} // namespace SurfaceView
