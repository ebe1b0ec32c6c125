#pragma once

#include "../../common/Enum.h"
#include "../../export/Export.h"
#include "Paint.h"

#include <vector>

namespace CommonUI
{

/// The shapes by which points in a diagram are told apart without colours.
enum class EMarkerShape {
    None = 0,
    Circle = 1,
    Square = 2,
    Diamond = 3,
    TriangleUp = 4,
    TriangleDown = 5,
    Cross = 6, ///< two diagonal strokes
    Plus = 7,
    Star = 8,
    Dot = 9 ///< a small filled circle
};

/// The shapes in the order of selection lists, with the keys under which files store them; an unknown key is
/// None.
COMMONUI_API const CEnum<EMarkerShape>& GetMarkerShapeEnum();

/// A marker as the user chose it.
struct SMarker {
    /// The smallest `size`, in points.
    static constexpr int c_leastSize = 3;
    /// The greatest `size`, in points.
    static constexpr int c_greatestSize = 32;

    EMarkerShape shape = EMarkerShape::Circle; ///< None draws nothing
    SPaint paint{};                            ///< of the outline, and of the area where that is filled
    int size = 8; ///< the edge of the square that it fills, in points, from c_leastSize to c_greatestSize
    bool filled = true; ///< shapes of mere strokes take no notice

    friend bool operator==(const SMarker&, const SMarker&) = default;
};

/// A point of a marker; the square that the marker fills is from -1 to 1 in both directions, y downwards.
struct SMarkerPoint {
    double x = 0; ///< to the right
    double y = 0; ///< downwards
};

/// A part of a marker's outline.
struct SMarkerPath {
    std::vector<SMarkerPoint> points{}; ///< joined by straight strokes, in this order
    bool closed = false;                ///< whether a stroke leads from the last point to the first
};

/// The outline of a shape, circles as polygons; empty for None.
COMMONUI_API std::vector<SMarkerPath> GetMarkerPaths(EMarkerShape shape);
/// Whether a shape has an area that can be filled.
COMMONUI_API bool CanFillMarker(EMarkerShape shape) noexcept;

/// What people call a marker: "Circle, Red, 8 pt".
COMMONUI_API CStr DescribeMarker(const SMarker& marker);

} // namespace CommonUI
