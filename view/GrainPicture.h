#pragma once

#include "analysis/grain/Grains.h"
#include "view/GridPart.h"
#include "view/MapPlace.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace SurfaceView
{

/// Pixels as 0xAARRGGBB.
struct SGrainColors {
    std::uint32_t inside = 0;  ///< the outermost pixels of grains
    std::uint32_t outside = 0; ///< those around grains
    std::uint32_t dense = 0;   ///< where grains lie closer than pixels
    std::uint32_t chosen = 0;  ///< all of the grain that is chosen, over the map
};

/// Draws the outlines of grains over what a place shows, as DrawMap does. Of a pixel that holds many points
/// up to 16 are looked at: the time goes by the pixels, whatever grains there are.
/// @param chosen a grain, or 0
std::vector<std::uint32_t> DrawGrains(const CommonUI::Analysis::SGrainMap& map, const SGrainColors& colors,
                                      std::uint32_t chosen, const CMapPlace& place, int scale);

/// The same of a part of the points, as a picture of a size: its first row is that of the first line.
std::vector<std::uint32_t> DrawGrains(const CommonUI::Analysis::SGrainMap& map, const SGrainColors& colors,
                                      std::uint32_t chosen, const SGridPart& part, std::size_t width,
                                      std::size_t height);

/// The grain at a point; 0 for none.
std::uint32_t FindGrain(const CommonUI::Analysis::SGrainMap& map, const CMapPlace& place,
                        const SMapPoint& point);

/// The middle of the smallest rectangle around a grain; nothing for one that there is not.
std::optional<SMapPoint> FindMiddle(const CommonUI::Analysis::SGrainMap& map, const CMapPlace& place,
                                    std::uint32_t grain);

} // namespace SurfaceView
