#include "controls/color/Marker.h"

#include <cmath>
#include <numbers>

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_shapes[] = {
    {.value = 0, .iniName = u"None", .textId = 11431},
    {.value = 1, .iniName = u"Circle", .textId = 11432},
    {.value = 2, .iniName = u"Square", .textId = 11433},
    {.value = 3, .iniName = u"Diamond", .textId = 11434},
    {.value = 4, .iniName = u"TriangleUp", .textId = 11435},
    {.value = 5, .iniName = u"TriangleDown", .textId = 11436},
    {.value = 6, .iniName = u"Cross", .textId = 11437},
    {.value = 7, .iniName = u"Plus", .textId = 11438},
    {.value = 8, .iniName = u"Star", .textId = 11439},
    {.value = 9, .iniName = u"Dot", .textId = 11440},
};

// A polygon of points on a circle, the first on top.
// @param inner the radius of every other point
SMarkerPath MakePolygon(int points, double outer, double inner)
{
    SMarkerPath path{{}, true};
    for (int i = 0; i < points; ++i) {
        const double angle = 2 * std::numbers::pi * i / points;
        const double radius = i % 2 == 0 ? outer : inner;
        path.points.push_back({radius * std::sin(angle), -radius * std::cos(angle)});
    }
    return path;
}

SMarkerPath MakeCircle(double radius)
{
    return MakePolygon(48, radius, radius);
}

SMarkerPath MakeStroke(double x, double y)
{
    return {{{-x, -y}, {x, y}}, false};
}

} // namespace

const CEnum<EMarkerShape>& GetMarkerShapeEnum()
{
    return GetEnumOfRows<EMarkerShape, c_shapes>();
}

std::vector<SMarkerPath> GetMarkerPaths(EMarkerShape shape)
{
    switch (shape) {
    case EMarkerShape::Circle:
        return {MakeCircle(1)};
    case EMarkerShape::Square:
        return {{{{-0.9, -0.9}, {0.9, -0.9}, {0.9, 0.9}, {-0.9, 0.9}}, true}};
    case EMarkerShape::Diamond:
        return {MakePolygon(4, 1, 1)};
    case EMarkerShape::TriangleUp:
        return {{{{0, -1}, {1, 0.8}, {-1, 0.8}}, true}};
    case EMarkerShape::TriangleDown:
        return {{{{0, 1}, {-1, -0.8}, {1, -0.8}}, true}};
    case EMarkerShape::Cross:
        return {MakeStroke(0.8, 0.8), MakeStroke(0.8, -0.8)};
    case EMarkerShape::Plus:
        return {MakeStroke(1, 0), MakeStroke(0, 1)};
    case EMarkerShape::Star:
        return {MakePolygon(10, 1, 0.42)};
    case EMarkerShape::Dot:
        return {MakeCircle(0.45)};
    case EMarkerShape::None:
        break;
    }
    return {};
}

bool CanFillMarker(EMarkerShape shape) noexcept
{
    return shape != EMarkerShape::None && shape != EMarkerShape::Cross && shape != EMarkerShape::Plus;
}

CStr DescribeMarker(const SMarker& marker)
{
    CStr shape = GetMarkerShapeEnum().GetFriendlyString(static_cast<int>(marker.shape));
    if (marker.shape == EMarkerShape::None)
        return shape;
    return CStr::Format(u"%s, %s, %d pt", shape, DescribePaint(marker.paint), marker.size);
}

} // namespace CommonUI
