#pragma once

#include "view/MapPlace.h"

class QEvent;
class QPainter;
class QWidget;

namespace Workbench
{

/// Something drawn over a map that may take its input before the map does.
class CMapOverlay
{
public:
    CMapOverlay() = default;
    virtual ~CMapOverlay() = default;
    CMapOverlay(const CMapOverlay&) = delete;
    CMapOverlay& operator=(const CMapOverlay&) = delete;

    /// @param painter of the map, which cuts off what is beside the surface
    virtual void Draw(QPainter& painter, const QWidget& map, const SurfaceView::CMapPlace& place) = 0;
    /// @param event of the mouse or the keyboard
    /// @return whether the map has nothing to do any more
    virtual bool Handle(QEvent& event, const SurfaceView::CMapPlace& place) = 0;
};

} // namespace Workbench
