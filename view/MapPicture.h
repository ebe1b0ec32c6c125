#pragma once

#include "common/Color.h"
#include "common/Range.h"
#include "common/Str.h"
#include "view/MapPlace.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace SurfaceView
{

/// The colours in which a map shows heights.
struct SMapColors {
    std::span<const CommonUI::SColor> table{}; ///< from the lowest to the highest; not empty
    std::optional<CommonUI::SColor> missing{}; ///< of missing points; transparent without it
    CommonUI::CRange<double> heights{};        ///< m; of some length
};

/// Draws what a place shows of a surface: pixels as 0xAARRGGBB, rows from the top down, over the whole of
/// GetShown. A pixel that holds many points has the mean of some of them: the time goes by the pixels.
/// @param scale how many pixels are drawn for one of the place along each side
std::vector<std::uint32_t> DrawMap(const CommonUI::Analysis::SSurface& surface, const SMapColors& colors,
                                   const CMapPlace& place, int scale);

/// Tells where a place of a surface is and how high: "x = 12.50 µm, y = 3.00 µm, z = −12.3 nm". The units go
/// by the size of the surface and of its heights, so that they do not change from point to point.
/// @return empty beside the surface
CommonUI::CStr DescribePoint(const CommonUI::Analysis::SSurface& surface,
                             const CommonUI::CRange<double>& heights, const SMapPoint& point);

} // namespace SurfaceView
