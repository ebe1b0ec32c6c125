#pragma once

#include "analysis/surface/Surface.h"
#include "common/Rect.h"
#include "view/View.h"

namespace SurfaceView
{

/// A place on a surface, in m from its first point.
struct SMapPoint {
    double x = 0;
    double y = 0;
};

/// Which part of a surface a map shows, and where: x to the right, y upwards, each point the middle of a
/// rectangle. Both directions have one scale, unless the map would be too narrow to be seen. Pixels are those
/// of a window, y downwards.
class CMapPlace
{
public:
    static constexpr double c_greatestZoom = 4096;

    explicit CMapPlace(const CommonUI::Analysis::SSurface& surface);

    /// The room that the map may take; what is in its middle stays there.
    void SetRoom(const CommonUI::SRect& room);
    /// Shows all of the surface.
    void Fit();
    /// 1 shows all of the surface.
    double GetZoom() const noexcept { return m_zoom; }
    /// What is at a pixel stays there, as far as the map does not end.
    void Zoom(const SPixel& at, double factor);
    void Pan(double right, double down);

    SPixel ToPixel(const SMapPoint& point) const;
    SMapPoint ToPoint(const SPixel& pixel) const;
    /// The part of the room in which there is surface.
    CommonUI::SRect GetShown() const;
    /// From the left, lower corner of the first point's rectangle to the right, upper one of the last one's.
    const SMapPoint& GetLower() const noexcept { return m_lower; }
    const SMapPoint& GetUpper() const noexcept { return m_upper; }

private:
    void KeepInside();

    SMapPoint m_lower;
    SMapPoint m_upper;
    CommonUI::SRect m_room{0, 0, 1, 1};
    double m_scaleX = 1; // pixels of a metre at zoom 1
    double m_scaleY = 1;
    double m_zoom = 1;
    SMapPoint m_middle{}; // what is in the middle of the room
};

} // namespace SurfaceView
