#include "workbench/BlockWidget.h"

#include "platform/MessageBoxService.h"
#include "qt/QtText.h"
#include "view/CloseUp.h"
#include "view/ColorTexture.h"
#include "view/GrainTexture.h"
#include "view/MeshBuffers.h"
#include "view/StackDepths.h"
#include "workbench/analyze/GrainOverlay.h"
#include "workbench/GLService.h"
#include "workbench/Texts.h"

#include <QEvent>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace Workbench
{

using CommonUI::E3DAccelerationMode;
using CommonUI::SColor;
using SurfaceView::SPoint;

namespace
{

constexpr double c_radian = std::numbers::pi / 180;
constexpr double c_zoomStep = 1.25;
constexpr double c_greatestZoom = 50;
constexpr double c_keyStep = 5;   // degrees
constexpr double c_keyPan = 0.05; // of the view
constexpr double c_degreesPerPixel = 0.4;
constexpr int c_restTime = 200;    // ms
constexpr double c_clickReach = 4; // pixels
// How much more than what is seen is made ready, on each side, for the next pictures.
constexpr double c_movingMargin = 0.5;
constexpr double c_grainMargin = 0.3;

SColor ToColor(const QColor& color)
{
    const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
    return {part(color.red()), part(color.green()), part(color.blue())};
}

SColor Mix(const QColor& ground, const QColor& text, int percentOfText)
{
    const auto mix = [=](int from, int to) { return from + (to - from) * percentOfText / 100; };
    return ToColor(
        {mix(ground.red(), text.red()), mix(ground.green(), text.green()), mix(ground.blue(), text.blue())});
}

// Whether the renderer of the context computes its pictures without a graphics card.
bool IsSoftware()
{
    const auto* const text = QOpenGLContext::currentContext()->functions()->glGetString(GL_RENDERER);
    const QString renderer = QString::fromUtf8(reinterpret_cast<const char*>(text));
    for (const char* const name : {"llvmpipe", "softpipe", "swrast", "Software", "GDI Generic"})
        if (renderer.contains(QLatin1String(name), Qt::CaseInsensitive))
            return true;
    return false;
}

} // namespace

SPoint ToLight(const SBlockLook& look)
{
    const double flat = std::cos(look.lightAbove * c_radian);
    const double around = look.lightAround * c_radian;
    return {std::sin(around) * flat, std::cos(around) * flat, std::sin(look.lightAbove * c_radian)};
}

bool CBlockWidget::IsPossible()
{
    static const bool isPossible = QOpenGLContext().create();
    return isPossible;
}

CBlockWidget::CBlockWidget(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
    : m_surface(std::move(surface))
    , m_choice(std::max<std::size_t>(1, m_surface->levels.size()), m_target)
{
    setAccessibleName(QText(EText::Block));
    setFocusPolicy(Qt::StrongFocus);
    m_scene.box = *m_surface->box;
    m_scene.colors = {{0, 0, 0}, {255, 255, 255}};
    m_buffers.resize(m_surface->levels.size());
    m_stillCloseUp = std::make_unique<SurfaceView::CCloseUp>(0);
    m_movingCloseUp = std::make_unique<SurfaceView::CCloseUp>(c_movingMargin);
    m_rest.setSingleShot(true);
    m_rest.setInterval(c_restTime);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        m_isMoving = false;
        update();
    });
    m_font.SetFont(font());
    UpdateSurroundings();
}

CBlockWidget::~CBlockWidget()
{
    if (context())
        disconnect(context(), nullptr, this, nullptr);
    DropBuffers();
}

QSize CBlockWidget::sizeHint() const
{
    return {40 * fontMetrics().height(), 30 * fontMetrics().height()};
}

QSize CBlockWidget::minimumSizeHint() const
{
    return {12 * fontMetrics().height(), 12 * fontMetrics().height()};
}

void CBlockWidget::SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
{
    DropBuffers();
    if (surface->levels.size() != m_buffers.size())
        m_choice = SurfaceView::CDetailChoice(std::max<std::size_t>(1, surface->levels.size()), m_target);
    m_surface = std::move(surface);
    m_buffers.clear();
    m_buffers.resize(m_surface->levels.size());
    SetLook(m_look);
}

void CBlockWidget::SetDriver(E3DAccelerationMode mode, double target)
{
    m_mode = mode;
    m_target = target;
    m_choice.SetTarget(target);
}

void CBlockWidget::SetColors(std::vector<SColor> table)
{
    m_scene.colors = std::move(table);
    if (m_texture) {
        makeCurrent();
        m_texture.reset();
        doneCurrent();
    }
    update();
}

void CBlockWidget::SetGrains(std::shared_ptr<const CommonUI::Measurement::SFoundGrains> grains,
                             std::uint32_t chosen)
{
    if (grains == m_grains && chosen == m_chosenGrain)
        return;
    m_grains = std::move(grains);
    m_chosenGrain = chosen;
    m_grainSide = 0;
    Move();
}

void CBlockWidget::SetLook(const SBlockLook& look)
{
    m_look = look;
    const SurfaceView::SBox& box = *m_surface->box;
    m_scene.box = box;
    if (look.exaggeration > 0) {
        m_scene.box.exaggeration = look.exaggeration;
        m_scene.box.z = box.z * look.exaggeration / box.exaggeration;
    }
    m_scene.light = ToLight(look);
    Move();
}

void CBlockWidget::Zoom(double factor)
{
    m_framing.zoom = std::clamp(m_framing.zoom * factor, 1 / c_greatestZoom, c_greatestZoom);
    Move();
}

void CBlockWidget::Fit()
{
    m_framing = {};
    m_direction = {30, 35};
    Move();
}

void CBlockWidget::Turn(double around, double above)
{
    m_direction.azimuth = std::remainder(m_direction.azimuth + around, 360);
    m_direction.elevation = std::clamp(m_direction.elevation + above, -90.0, 90.0);
    Move();
}

void CBlockWidget::MovePan(double right, double down)
{
    constexpr double c_farthest = 20;
    m_framing.pan.x = std::clamp(m_framing.pan.x + right, -c_farthest, c_farthest);
    m_framing.pan.y = std::clamp(m_framing.pan.y - down, -c_farthest, c_farthest);
    Move();
}

void CBlockWidget::MoveLight(double around, double above)
{
    SBlockLook look = m_look;
    look.lightAround = std::fmod(look.lightAround + around + 360, 360);
    look.lightAbove = std::clamp(look.lightAbove + above, 0.0, 90.0);
    SetLook(look);
    Q_EMIT LookChanged();
}

void CBlockWidget::Move()
{
    m_isMoving = true;
    m_rest.start();
    update();
}

void CBlockWidget::UpdateSurroundings()
{
    const QColor ground = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    m_scene.surroundings = {.ground = ToColor(ground),
                            .wall = Mix(ground, text, 5),
                            .grid = Mix(ground, text, 20),
                            .frame = Mix(ground, text, 55),
                            .text = ToColor(text),
                            .cutAlongX = Mix(ground, text, 45),
                            .cutAlongY = Mix(ground, text, 57)};
}

void CBlockWidget::DropBuffers()
{
    if (!context())
        return;
    makeCurrent();
    CGLService service;
    const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(service);
    m_texture.reset();
    m_grainTexture.reset();
    m_grainSide = 0;
    for (auto& buffer : m_buffers)
        buffer.reset();
    m_stillCloseUp->Drop();
    m_movingCloseUp->Drop();
    doneCurrent();
}

QString CBlockWidget::FindFault() const
{
    const QOpenGLContext* const current = context();
    if (!current || !current->isValid())
        return QText(EText::NoOpenGL);
    const QSurfaceFormat format = current->format();
    const bool isOld = format.version() < std::pair(1, 4);
    if (current->isOpenGLES() || isOld || format.profile() == QSurfaceFormat::CoreProfile)
        return QText(EText::OldOpenGL);
    if (m_mode == E3DAccelerationMode::Hardware && IsSoftware())
        return QText(EText::OnlySoftware);
    return {};
}

void CBlockWidget::Fail(const QString& reason)
{
    m_hasFailed = true;
    // What shows it instead takes it away, which must not happen while it is painted.
    QMetaObject::invokeMethod(
        this, [this, reason] { Q_EMIT Failed(reason); }, Qt::QueuedConnection);
}

void CBlockWidget::initializeGL()
{
    // The context goes when the widget gets another window, for instance.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &CBlockWidget::DropBuffers,
            Qt::UniqueConnection);
    if (const QString fault = FindFault(); !fault.isEmpty())
        Fail(fault);
}

void CBlockWidget::paintGL()
{
    if (m_hasFailed)
        return;
    CGLService service;
    const CommonUI::CServiceScope<CommonUI::CGLEntryPoints> scope(service);
    // What goes wrong is said in the place of the view; a box must not open while it is painted.
    const CommonUI::CServiceScope<CommonUI::CMessageBoxService> silent(
        CommonUI::GetSilentMessageBoxService());
    try {
        DrawFrame();
    } catch (const std::exception&) {
        Fail(QText(EText::DrawingFailed));
    }
}

// The outlines are about as wide as in maps.
void CBlockWidget::UpdateGrains()
{
    if (!m_grains || m_grains->map.labels.empty()) {
        m_grainTexture.reset();
        return;
    }
    const SurfaceView::SView& view = m_scene.layout.view;
    const double side = std::max(view.viewport.GetWidth(), view.viewport.GetHeight()) / devicePixelRatioF();
    const CommonUI::Analysis::SSurface& surface = m_surface->GetSurface();
    const CommonUI::Analysis::SGrainMap& map = m_grains->map;
    const SurfaceView::SGridPart all{.points = map.points, .lines = map.lines};
    const SurfaceView::SGridPart shown = m_surface->tree.FindSeen(m_scene.box, view);
    if (shown.IsEmpty())
        return;
    const SurfaceView::SGridPart seen =
        MoveToGrid(shown, {.points = surface.points, .lines = surface.lines}, all);
    if (side == m_grainSide && m_grainTexture && Serves(m_grainPart, seen, c_grainMargin, all))
        return;
    m_grainSide = side;
    m_grainPart = Widen(seen, c_grainMargin, all);
    m_grainTexture.reset();
    m_grainTexture = std::make_unique<SurfaceView::CGrainTexture>(
        map, GetGrainColors(palette()), m_chosenGrain, m_grainPart,
        static_cast<std::size_t>((1 + 2 * c_grainMargin) * side));
}

// That of all of the surface, or of what is seen of it where this has more points.
const SurfaceView::CMeshBuffers& CBlockWidget::UpdateMesh(std::size_t level, QElapsedTimer& timer)
{
    SurfaceView::CCloseUp& closeUp = m_isMoving ? *m_movingCloseUp : *m_stillCloseUp;
    const std::size_t most = SurfaceView::c_mostPoints >> (m_choice.GetFinest() - level);
    const SurfaceView::CMeshBuffers* mesh =
        closeUp.Update(*m_surface, m_scene.box, m_scene.layout.view, most);
    m_frame.isCloseUp = mesh != nullptr;
    bool isNew = closeUp.IsNew();
    if (!mesh && !m_buffers[level]) {
        m_buffers[level] = std::make_unique<SurfaceView::CMeshBuffers>(m_surface->levels[level]);
        isNew = true;
    }
    if (isNew)
        timer.restart(); // the picture after this one needs none of it
    return mesh ? *mesh : *m_buffers[level];
}

void CBlockWidget::DrawFrame()
{
    QElapsedTimer timer;
    timer.start();
    const std::size_t level = m_isMoving ? m_choice.GetMoving() : m_choice.GetFinest();
    if (!m_texture)
        m_texture = std::make_unique<SurfaceView::CColorTexture>(m_scene.colors);
    const double ratio = devicePixelRatioF();
    const CommonUI::SSize size{.cx = static_cast<int>(width() * ratio),
                               .cy = static_cast<int>(height() * ratio)};
    m_framing.fontHeight = qRound(QFontInfo(font()).pixelSize() * ratio);
    m_scene.eye = m_direction.ToEye();
    m_scene.layout = SurfaceView::MakeLayout(m_scene.box, m_direction, m_look.isParallel, {}, size,
                                             std::max(1, qRound(ratio)), m_font, m_framing);
    UpdateGrains();
    const SurfaceView::CMeshBuffers& mesh = UpdateMesh(level, timer);
    const SurfaceView::SStackDepths before = SurfaceView::ReadStackDepths();
    const SurfaceView::SFrameWork work =
        SurfaceView::Draw(m_scene, size, m_font, {&mesh, m_texture.get(), m_grainTexture.get()});
    SurfaceView::CheckRestored(before, SurfaceView::ReadStackDepths());
    // A driver may go on drawing after its functions have returned.
    context()->functions()->glFinish();
    m_frame.work = work;
    m_frame.seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    m_frame.isMoving = m_isMoving;
    if (m_isMoving)
        m_choice.AddTime(m_frame.seconds);
}

void CBlockWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        m_font.SetFont(font());
    if (event->type() == QEvent::PaletteChange) {
        UpdateSurroundings();
        m_grainSide = 0;
    }
    QOpenGLWidget::changeEvent(event);
    update();
}

void CBlockWidget::mousePressEvent(QMouseEvent* event)
{
    m_dragged = event->position().toPoint();
    const bool mayClick = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    m_pressed = mayClick ? std::optional(event->position()) : std::nullopt;
    m_hasClicked = false;
}

void CBlockWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_pressed || event->button() != Qt::LeftButton)
        return;
    m_pressed.reset();
    m_hasClicked = true;
    Q_EMIT Clicked(FindPlace(event->position()));
}

std::optional<SurfaceView::SMapPoint> CBlockWidget::FindPlace(const QPointF& at) const
{
    const double ratio = devicePixelRatioF();
    const SurfaceView::SPixel pixel{.x = at.x() * ratio, .y = (height() - at.y()) * ratio};
    const SurfaceView::SBox& box = m_scene.box;
    const auto hit =
        m_surface->tree.FindHit(m_surface->GetSurface(), box, m_scene.layout.view.Unproject(pixel));
    if (!hit || !hit->isOutside || m_scene.eye.z < 0) // from below the bottom is seen
        return {};
    return SurfaceView::SMapPoint{.x = (hit->place.x / box.x + 1) / 2 * box.width,
                                  .y = (hit->place.y / box.y + 1) / 2 * box.depth};
}

void CBlockWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_pressed && (event->position() - *m_pressed).manhattanLength() > c_clickReach)
        m_pressed.reset(); // wherever it ends
    const QPoint moved = event->position().toPoint() - m_dragged;
    m_dragged = event->position().toPoint();
    const bool isOther = event->buttons() & (Qt::RightButton | Qt::MiddleButton);
    if (isOther || event->modifiers() & Qt::ShiftModifier) {
        const double side = std::max(1, std::min(width(), height()));
        MovePan(moved.x() / side, moved.y() / side);
    } else if (event->modifiers() & Qt::ControlModifier) {
        MoveLight(moved.x() * c_degreesPerPixel, -moved.y() * c_degreesPerPixel);
    } else if (event->buttons() & Qt::LeftButton) {
        Turn(-moved.x() * c_degreesPerPixel, moved.y() * c_degreesPerPixel);
    }
}

void CBlockWidget::mouseDoubleClickEvent(QMouseEvent*)
{
    if (std::exchange(m_hasClicked, false))
        Q_EMIT ClickTakenBack();
    Fit();
}

void CBlockWidget::wheelEvent(QWheelEvent* event)
{
    Zoom(std::pow(c_zoomStep, event->angleDelta().y() / 120.0));
}

void CBlockWidget::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const double right = (key == Qt::Key_Right) - (key == Qt::Key_Left);
    const double down = (key == Qt::Key_Down) - (key == Qt::Key_Up);
    if ((right != 0 || down != 0) && event->modifiers() & Qt::ShiftModifier)
        MovePan(right * c_keyPan, down * c_keyPan);
    else if ((right != 0 || down != 0) && event->modifiers() & Qt::ControlModifier)
        MoveLight(right * c_keyStep, -down * c_keyStep);
    else if (right != 0 || down != 0)
        Turn(-right * c_keyStep, down * c_keyStep);
    else if (key == Qt::Key_Plus || key == Qt::Key_Minus)
        Zoom(key == Qt::Key_Plus ? c_zoomStep : 1 / c_zoomStep);
    else if (key == Qt::Key_Home)
        Fit();
    else
        QOpenGLWidget::keyPressEvent(event);
}

} // namespace Workbench
