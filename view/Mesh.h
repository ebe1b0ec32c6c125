#pragma once

#include "analysis/surface/Surface.h"
#include "common/Range.h"
#include "view/GridPart.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace SurfaceView
{

/// More points along a side than this are not told apart in a picture.
constexpr std::size_t c_mostPoints = 768;

/// The block in which a surface is drawn. Its middle is the origin, its longer side along x or y is 2.
struct SBox {
    double x = 1; ///< half of its width
    double y = 1;
    double z = 1;                       ///< half of its height
    double exaggeration = 1;            ///< how many times heights are drawn higher than lengths
    CommonUI::CRange<double> heights{}; ///< from the bottom to the top, m
    double width = 0;                   ///< along x, m
    double depth = 0;                   ///< along y, m

    /// Where a height lies: -z at the bottom, z at the top.
    double PlaceHeight(double height) const;
    /// The share of the block's height: 0 at the bottom, 1 at the top.
    double ShareOf(double height) const { return (height - heights.GetLower()) / heights.GetLength(); }
};

/// The block of a surface, from its lowest to its highest point.
/// @param zScale the exaggeration; 0 for one that makes the block a quarter as high as it is long
/// @throws std::runtime_error for a surface without points or of less than two lines or points in a line
SBox MakeBox(const CommonUI::Analysis::SSurface& surface, double zScale);

/// A corner of the mesh, in coordinates of the block.
struct SVertex {
    std::array<float, 3> position{};
    std::array<float, 3> normal{};
    float share = 0; ///< of the block's height, 0 to 1: its place in the colour scale
};

/// A surface as triangles; where points are missing it has holes.
struct SMesh {
    double z = 1; ///< half of the height of the block that it was made for; Draw stretches it to another one
    std::vector<SVertex> vertices{}; ///< line after line, those of missing points unused
    std::vector<std::array<std::uint32_t, 3>> triangles{}; ///< anticlockwise from above
    std::vector<std::array<std::uint32_t, 2>> rim{};       ///< pairs of vertices along the four sides
};

SMesh MakeMesh(const CommonUI::Analysis::SSurface& surface, const SBox& box);
/// The mesh of a part of a surface, of at least two lines of two points. Its rim is what it has of the four
/// sides of the surface.
/// @param most how many points along a side it may have, at least 2
SMesh MakeMesh(const CommonUI::Analysis::SSurface& surface, const SBox& box, const SGridPart& part,
               std::size_t most);

} // namespace SurfaceView
