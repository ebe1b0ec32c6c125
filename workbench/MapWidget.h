#pragma once

#include "settings/readers/ColorScale.h"
#include "view/MapPlace.h"
#include "view/ViewedSurface.h"
#include "workbench/see/MapOverlay.h"

#include <QImage>
#include <QWidget>

#include <optional>
#include <vector>

namespace Workbench
{

/// A surface seen from above, with axes and the legend of its colours. The wheel and + and - zoom, dragging
/// and Shift with the arrow keys move the map, the pointer or the arrow keys lead to the point that is read
/// out; Home and a double click show all of it.
class CMapWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CMapWidget(std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    ~CMapWidget() override;

    /// Shows another surface at the same place. One of another size is shown as a whole, unless it stands for
    /// the one before with fewer points.
    void SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface, bool isPreview);
    const SurfaceView::SViewedSurface& GetSurface() const noexcept { return *m_surface; }
    void SetColors(const CommonUI::SColorScale& colors);
    void Zoom(double factor);
    void Fit();
    const SurfaceView::CMapPlace& GetPlace() const noexcept { return m_place; }
    /// Moves a place of the surface to the middle.
    void Center(const SurfaceView::SMapPoint& point);
    /// What is drawn over the map, after those before. It is not owned, and stays as long as the map.
    void AddOverlay(CMapOverlay& overlay);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// What there is to say of the point that the user is at; empty beside the surface.
    void PointRead(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString GetHeightsLabel() const;
    void LayOut();
    void Change();
    void Read(const std::optional<SurfaceView::SMapPoint>& point);
    void MoveCursor(int right, int down);
    void DrawPicture(QPainter& painter);
    void DrawAxes(QPainter& painter) const;
    void DrawLegend(QPainter& painter) const;
    void DrawCursor(QPainter& painter) const;
    void DrawOverlays(QPainter& painter) const;
    bool IsHandled(QEvent& event);

    std::shared_ptr<const SurfaceView::SViewedSurface> m_surface;
    SurfaceView::CMapPlace m_place;
    CommonUI::SColorScale m_colors;
    std::vector<CommonUI::SColor> m_table;
    QRect m_room;     // of the map
    QRect m_legend;   // the bar
    QImage m_picture; // of what is shown; null after a change
    QPoint m_dragged;
    bool m_isPanning = false;
    std::optional<SurfaceView::SMapPoint> m_cursor; // that of the keyboard
    std::vector<CMapOverlay*> m_overlays;
};

} // namespace Workbench
