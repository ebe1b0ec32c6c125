#pragma once

#include "measurement/Results.h"
#include "settings/preferences/PreferencesData.h"
#include "view/DetailLevels.h"
#include "view/Drawing.h"
#include "view/MapPlace.h"
#include "view/ViewedSurface.h"
#include "workbench/LabelFont.h"

#include <QElapsedTimer>
#include <QOpenGLWidget>
#include <QTimer>

#include <optional>
#include <vector>

namespace SurfaceView
{
class CCloseUp;
class CColorTexture;
class CGrainTexture;
class CMeshBuffers;
} // namespace SurfaceView

namespace Workbench
{

/// How the block of a surface is shown, for all views alike.
struct SBlockLook {
    double exaggeration = 0; ///< how many times heights are drawn higher than lengths; 0 for what suits
    /// From where the light comes, seen from the eye: degrees clockwise from the top of the view, and from
    /// the plane of the view to the eye.
    double lightAround = 320;
    double lightAbove = 49;
    bool isParallel = false; ///< instead of in perspective

    friend bool operator==(const SBlockLook&, const SBlockLook&) = default;
};

/// What a picture has cost, and how long it took, in seconds.
struct SFrame {
    SurfaceView::SFrameWork work{};
    double seconds = 0;
    bool isMoving = false;  ///< at the level of detail for that
    bool isCloseUp = false; ///< of the part of the surface that is seen
};

/// A surface as a block in three dimensions, drawn by OpenGL. Dragging and the arrow keys turn it, with the
/// right button or Shift they move it, with Ctrl they move the light; the wheel and + and - zoom, Home and a
/// double click show all of it. While it moves, the level of detail is the finest that is drawn in time.
class CBlockWidget : public QOpenGLWidget
{
    Q_OBJECT

public:
    /// Whether the platform of the windows has OpenGL at all. Where it has none, a widget for it would take
    /// the process with it as soon as its window is painted.
    static bool IsPossible();

    explicit CBlockWidget(std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    ~CBlockWidget() override;

    /// Shows another surface from the same direction.
    void SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    /// @param mode whether a software driver will do
    /// @param target the time in seconds that a picture should take while the block moves
    void SetDriver(CommonUI::E3DAccelerationMode mode, double target);
    void SetColors(std::vector<CommonUI::SColor> table);
    /// Marks grains.
    /// @param grains of all points of the surface, though the block may show fewer; null for none
    /// @param chosen a grain, or 0
    void SetGrains(std::shared_ptr<const CommonUI::Measurement::SFoundGrains> grains, std::uint32_t chosen);
    void SetLook(const SBlockLook& look);
    const SBlockLook& GetLook() const noexcept { return m_look; }
    void Zoom(double factor);
    void Fit();
    const SurfaceView::SDirection& GetDirection() const noexcept { return m_direction; }
    const SurfaceView::SFraming& GetFraming() const noexcept { return m_framing; }
    /// Turns the block, as dragging does.
    void Turn(double around, double above);
    /// The place of the surface that is seen at a place of the widget.
    std::optional<SurfaceView::SMapPoint> FindPlace(const QPointF& at) const;
    /// The last picture that was drawn.
    const SFrame& GetFrame() const noexcept { return m_frame; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The view cannot be drawn, and says why in a sentence. It stays as it is.
    void Failed(const QString& reason);
    void LookChanged();
    /// The user has clicked on a place of the surface, or on none.
    void Clicked(const std::optional<SurfaceView::SMapPoint>& place);
    /// The last click was the first one of a double click, which means something else.
    void ClickTakenBack();

protected:
    void initializeGL() override;
    void paintGL() override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void DropBuffers();
    QString FindFault() const;
    void Fail(const QString& reason);
    void Move();
    void MovePan(double right, double down);
    void MoveLight(double around, double above);
    void DrawFrame();
    const SurfaceView::CMeshBuffers& UpdateMesh(std::size_t level, QElapsedTimer& timer);
    void UpdateGrains();
    void UpdateSurroundings();

    std::shared_ptr<const SurfaceView::SViewedSurface> m_surface;
    SurfaceView::SScene m_scene;
    double m_target = 0.05; // s, of a picture while the block moves
    SurfaceView::CDetailChoice m_choice;
    SurfaceView::SDirection m_direction{30, 35};
    SurfaceView::SFraming m_framing;
    SBlockLook m_look;
    CommonUI::E3DAccelerationMode m_mode = CommonUI::E3DAccelerationMode::Automatic;
    CLabelFont m_font;
    std::vector<std::unique_ptr<SurfaceView::CMeshBuffers>> m_buffers; // of the levels that were drawn
    std::unique_ptr<SurfaceView::CCloseUp> m_stillCloseUp;
    std::unique_ptr<SurfaceView::CCloseUp> m_movingCloseUp;
    std::unique_ptr<SurfaceView::CColorTexture> m_texture;
    std::shared_ptr<const CommonUI::Measurement::SFoundGrains> m_grains;
    std::uint32_t m_chosenGrain = 0;
    std::unique_ptr<SurfaceView::CGrainTexture> m_grainTexture;
    double m_grainSide = 0; // the pixels that it was made for; 0 when there is to be another one
    SurfaceView::SGridPart m_grainPart{};
    bool m_hasFailed = false;
    bool m_isMoving = false;
    QTimer m_rest; // ticks when nothing has moved for a while
    QPoint m_dragged;
    std::optional<QPointF> m_pressed; // where the button went down that may become a click
    bool m_hasClicked = false;        // with the last press
    SFrame m_frame;
};

/// The direction to the light, as seen from the eye.
SurfaceView::SPoint ToLight(const SBlockLook& look);

} // namespace Workbench
