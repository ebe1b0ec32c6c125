#include "view/MapPlace.h"

#include <algorithm>
#include <cmath>

namespace SurfaceView
{

namespace
{

constexpr double c_narrowest = 60; // pixels: a long strip is drawn this wide

// The spacing of a file with one line may be missing.
double Spacing(double own, double other)
{
    return own > 0 ? own : other > 0 ? other : 1;
}

} // namespace

CMapPlace::CMapPlace(const CommonUI::Analysis::SSurface& surface)
{
    const double dx = Spacing(surface.dx, surface.dy);
    const double dy = Spacing(surface.dy, surface.dx);
    m_lower = {.x = -dx / 2, .y = -dy / 2};
    m_upper = {.x = (static_cast<double>(surface.points) - 0.5) * dx,
               .y = (static_cast<double>(surface.lines) - 0.5) * dy};
    Fit();
}

void CMapPlace::SetRoom(const CommonUI::SRect& room)
{
    m_room = {room.left, room.top, std::max(room.right, room.left + 1), std::max(room.bottom, room.top + 1)};
    const double width = m_room.GetWidth() / (m_upper.x - m_lower.x);
    const double height = m_room.GetHeight() / (m_upper.y - m_lower.y);
    const double scale = std::min(width, height);
    m_scaleX = std::min(width, std::max(scale, c_narrowest / (m_upper.x - m_lower.x)));
    m_scaleY = std::min(height, std::max(scale, c_narrowest / (m_upper.y - m_lower.y)));
    KeepInside();
}

void CMapPlace::Fit()
{
    m_zoom = 1;
    m_middle = {.x = (m_lower.x + m_upper.x) / 2, .y = (m_lower.y + m_upper.y) / 2};
}

void CMapPlace::Zoom(const SPixel& at, double factor)
{
    const SMapPoint before = ToPoint(at);
    m_zoom = std::clamp(m_zoom * factor, 1.0, c_greatestZoom);
    const SMapPoint after = ToPoint(at);
    m_middle = {.x = m_middle.x + before.x - after.x, .y = m_middle.y + before.y - after.y};
    KeepInside();
}

void CMapPlace::Pan(double right, double down)
{
    m_middle = {.x = m_middle.x - right / (m_scaleX * m_zoom), .y = m_middle.y + down / (m_scaleY * m_zoom)};
    KeepInside();
}

SPixel CMapPlace::ToPixel(const SMapPoint& point) const
{
    return {.x = (m_room.left + m_room.right) / 2.0 + (point.x - m_middle.x) * m_scaleX * m_zoom,
            .y = (m_room.top + m_room.bottom) / 2.0 - (point.y - m_middle.y) * m_scaleY * m_zoom};
}

SMapPoint CMapPlace::ToPoint(const SPixel& pixel) const
{
    return {.x = m_middle.x + (pixel.x - (m_room.left + m_room.right) / 2.0) / (m_scaleX * m_zoom),
            .y = m_middle.y - (pixel.y - (m_room.top + m_room.bottom) / 2.0) / (m_scaleY * m_zoom)};
}

CommonUI::SRect CMapPlace::GetShown() const
{
    const SPixel low = ToPixel(m_lower);
    const SPixel high = ToPixel(m_upper);
    const auto round = [](double value) { return static_cast<int>(std::lround(value)); };
    return {.left = std::max(m_room.left, round(std::max(low.x, -1e6))),
            .top = std::max(m_room.top, round(std::max(high.y, -1e6))),
            .right = std::min(m_room.right, round(std::min(high.x, 1e6))),
            .bottom = std::min(m_room.bottom, round(std::min(low.y, 1e6)))};
}

// No more room than needed stays empty.
void CMapPlace::KeepInside()
{
    const auto keep = [](double& middle, double lower, double upper, double half) {
        middle = lower + half >= upper - half ? (lower + upper) / 2
                                              : std::clamp(middle, lower + half, upper - half);
    };
    keep(m_middle.x, m_lower.x, m_upper.x, m_room.GetWidth() / (2 * m_scaleX * m_zoom));
    keep(m_middle.y, m_lower.y, m_upper.y, m_room.GetHeight() / (2 * m_scaleY * m_zoom));
}

} // namespace SurfaceView
