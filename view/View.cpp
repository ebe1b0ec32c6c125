#include "view/View.h"

#include "gl/GLUtils.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace SurfaceView
{

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_radian = std::numbers::pi / 180;
constexpr double c_fieldOfView = 30; // a narrow one, so that the perspective does not shout
// The block is fitted with a little room, or its edges would be cut in half.
constexpr double c_room = 0.99;

// The tangents of half the angles that a view covers across and upwards.
struct SOpening {
    double x = 0;
    double y = 0;
};

SOpening OpeningOf(double fieldOfView, const CommonUI::SRect& viewport)
{
    const double shorter = std::tan(fieldOfView / 2 * c_radian);
    const double aspect = static_cast<double>(viewport.right - viewport.left) /
                          static_cast<double>(viewport.bottom - viewport.top);
    return aspect < 1 ? SOpening{shorter, shorter / aspect} : SOpening{shorter * aspect, shorter};
}

// The rotation that turns the block so that the eye looks along -z.
std::array<double, 16> Turn(const SDirection& direction)
{
    const double sinA = std::sin(direction.azimuth * c_radian);
    const double cosA = std::cos(direction.azimuth * c_radian);
    const double sinE = std::sin(direction.elevation * c_radian);
    const double cosE = std::cos(direction.elevation * c_radian);
    return {cosA, -sinA * sinE, sinA * cosE, 0, sinA, cosA * sinE, -cosA * cosE, 0, 0, cosE, sinE, 0, 0, 0, 0,
            1};
}

SPoint Apply(const std::array<double, 16>& matrix, const SPoint& point)
{
    SPoint result;
    CommonUI::Transform(point.x, point.y, point.z, matrix.data(), result.x, result.y, result.z);
    return result;
}

std::array<SPoint, 8> TurnedCorners(const SBox& box, const std::array<double, 16>& turn)
{
    std::array<SPoint, 8> corners;
    for (unsigned int i = 0; i < corners.size(); ++i)
        corners[i] = Apply(turn, {i & 1 ? box.x : -box.x, i & 2 ? box.y : -box.y, i & 4 ? box.z : -box.z});
    return corners;
}

// The least distance from the eye at which all corners are seen between the sides of the opening. A corner
// is at an offset of the eye from -opening to opening times its distance, and there is an offset for all at
// the distance where the bounds meet.
double PerspectiveDistance(const std::array<SPoint, 8>& corners, double SPoint::*across, double opening)
{
    double low = -c_infinity;
    double high = -c_infinity;
    for (const SPoint& corner : corners) {
        low = std::max(low, opening * corner.z - corner.*across);
        high = std::max(high, opening * corner.z + corner.*across);
    }
    return (low + high) / 2 / opening;
}

// The distance at which the opening is as wide as the block.
double OrthographicDistance(const std::array<SPoint, 8>& corners, double SPoint::*across, double opening)
{
    const auto [low, high] = std::ranges::minmax(corners, {}, across);
    return (high.*across - low.*across) / 2 / opening;
}

// The field of view of which half the opening is the tangent.
double AngleOf(double opening)
{
    return 2 / c_radian * std::atan(opening);
}

// Moves a view away from the block.
// @param distance at which the field of view is as wide as it shall be seen
void SetDistance(SView& view, const SBox& box, double distance)
{
    const double radius = std::hypot(box.x, box.y, box.z);
    // How far an orthographic view is away does not matter; what it shows is as wide as the field of view at
    // the far plane.
    const double away = view.orthographic ? 2 * radius : distance;
    view.farPlane = away + 1.1 * radius;
    view.nearPlane = std::max(away - 1.1 * radius, 0.01 * radius);
    if (view.orthographic)
        view.fieldOfView = AngleOf(std::tan(view.fieldOfView / 2 * c_radian) * distance / view.farPlane);
    view.modelView[14] = -away;
}

// How far the block has to be moved across to be seen in the middle.
double Center(const std::array<SPoint, 8>& corners, double SPoint::*across, double distance,
              bool orthographic)
{
    double offset = 0;
    for (int round = 0; round < 20; ++round) { // the last of them move it by less than a pixel's millionth
        double low = c_infinity;
        double high = -c_infinity;
        for (const SPoint& corner : corners) {
            const double seen = (corner.*across + offset) / (orthographic ? 1 : distance - corner.z);
            low = std::min(low, seen);
            high = std::max(high, seen);
        }
        offset -= (low + high) / 2 * (orthographic ? 1 : distance);
    }
    return offset;
}

} // namespace

SPoint SDirection::ToEye() const
{
    const std::array<double, 16> turn = Turn(*this);
    return {turn[2], turn[6], turn[10]};
}

SPixel SView::Project(const SPoint& point) const
{
    const SPoint seen = Apply(modelView, point);
    const SOpening opening = OpeningOf(fieldOfView, viewport);
    const double distance = orthographic ? farPlane : -seen.z;
    const double width = viewport.right - viewport.left;
    const double height = viewport.bottom - viewport.top;
    return {.x = viewport.left + (seen.x / (opening.x * distance) + 1) / 2 * width,
            .y = viewport.top + (seen.y / (opening.y * distance) + 1) / 2 * height};
}

SRay SView::Unproject(const SPixel& pixel) const
{
    const SOpening opening = OpeningOf(fieldOfView, viewport);
    const double x = (2 * (pixel.x - viewport.left) / viewport.GetWidth() - 1) * opening.x;
    const double y = (2 * (pixel.y - viewport.top) / viewport.GetHeight() - 1) * opening.y;
    // The matrix turns and moves: turned back, its rows are what its columns were.
    const auto turnBack = [this](const SPoint& seen) {
        const auto along = [&](std::size_t column) {
            return modelView[column] * seen.x + modelView[column + 1] * seen.y +
                   modelView[column + 2] * seen.z;
        };
        return SPoint{along(0), along(4), along(8)};
    };
    const SPoint eye = orthographic ? SPoint{x * farPlane, y * farPlane, 0} : SPoint{};
    return {.origin = turnBack({eye.x - modelView[12], eye.y - modelView[13], eye.z - modelView[14]}),
            .direction = turnBack(orthographic ? SPoint{0, 0, -1} : SPoint{x, y, -1})};
}

SView FitView(const SBox& box, const SDirection& direction, bool orthographic,
              const CommonUI::SRect& viewport)
{
    SView view{.modelView = Turn(direction),
               .orthographic = orthographic,
               .fieldOfView = c_fieldOfView,
               .viewport = viewport};
    const std::array<SPoint, 8> corners = TurnedCorners(box, view.modelView);
    const SOpening opening = OpeningOf(c_fieldOfView * c_room, viewport);
    const auto fit = orthographic ? OrthographicDistance : PerspectiveDistance;
    const double distance =
        std::max(fit(corners, &SPoint::x, opening.x), fit(corners, &SPoint::y, opening.y));
    SetDistance(view, box, distance);
    view.modelView[12] = Center(corners, &SPoint::x, distance, orthographic);
    view.modelView[13] = Center(corners, &SPoint::y, distance, orthographic);
    return view;
}

void Pan(SView& view, const SPixel& shares)
{
    const double distance = view.orthographic ? view.farPlane : -view.modelView[14];
    const double side = 2 * std::tan(view.fieldOfView / 2 * c_radian) * distance;
    view.modelView[12] += shares.x * side;
    view.modelView[13] += shares.y * side;
}

SView CenterView(const SBox& box, const SDirection& direction, bool orthographic,
                 const CommonUI::SRect& viewport, double zoom)
{
    SView view{.modelView = Turn(direction), .orthographic = orthographic, .viewport = viewport};
    const double opening = std::tan(c_fieldOfView / 2 * c_radian) * c_room;
    const double radius = std::hypot(box.x, box.y, box.z);
    view.fieldOfView = AngleOf(std::tan(c_fieldOfView / 2 * c_radian) / zoom);
    // A sphere around the block touches the sides of the opening; what is parallel has no perspective.
    SetDistance(view, box, radius / (orthographic ? opening : std::sin(std::atan(opening))));
    return view;
}

} // namespace SurfaceView
