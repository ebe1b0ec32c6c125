#include "gl/GLStack.h"
#include "gl/GLUtils.h"
#include "view/ColorTexture.h"
#include "view/detail/DrawingSteps.h"
#include "view/detail/OpenGL.h"
#include "view/GrainTexture.h"
#include "view/MeshBuffers.h"

#include <array>
#include <cmath>

namespace SurfaceView
{

using CommonUI::CGLStack;
using CommonUI::SRect;

namespace
{

void AddPoint(const SPoint& point)
{
    glVertex3d(point.x, point.y, point.z);
}

// Sets how the block is looked at, until the stack is popped.
void PushView(CGLStack& stack, const SView& view)
{
    Require(stack.PushAttrib(GL_VIEWPORT_BIT | GL_TRANSFORM_BIT));
    const SRect& viewport = view.viewport;
    glViewport(viewport.left, viewport.top, viewport.right - viewport.left, viewport.bottom - viewport.top);
    glMatrixMode(GL_PROJECTION);
    Require(stack.PushMatrix());
    glLoadIdentity();
    CommonUI::SetupProjectionMatrix(view.orthographic, view.fieldOfView, view.nearPlane, view.farPlane,
                                    viewport);
    // The mode is saved once more, so that each matrix is popped in its own.
    Require(stack.PushAttrib(GL_TRANSFORM_BIT));
    glMatrixMode(GL_MODELVIEW);
    Require(stack.PushMatrix());
    glLoadMatrixd(view.modelView.data());
}

// The walls behind the surface and the floor, with a grid at the marks of the axes.
class CWalls
{
public:
    explicit CWalls(const SScene& scene)
        : m_box(scene.box)
        , m_axes(scene.layout.axes)
        , m_colors(scene.surroundings)
        , m_x(scene.eye.x < 0 ? m_box.x : -m_box.x)
        , m_y(scene.eye.y < 0 ? m_box.y : -m_box.y)
    {
    }

    void Fill() const
    {
        SetColor(m_colors.wall);
        glBegin(GL_QUADS);
        AddOutlines();
        glEnd();
    }

    void Rule() const
    {
        SetColor(m_colors.grid);
        glBegin(GL_LINES);
        for (const STick& tick : m_axes[0].ticks) {
            const double x = (2 * tick.value / m_box.width - 1) * m_box.x;
            AddLine({x, -m_box.y, -m_box.z}, {x, m_box.y, -m_box.z});
            AddLine({x, m_y, -m_box.z}, {x, m_y, m_box.z});
        }
        for (const STick& tick : m_axes[1].ticks) {
            const double y = (2 * tick.value / m_box.depth - 1) * m_box.y;
            AddLine({-m_box.x, y, -m_box.z}, {m_box.x, y, -m_box.z});
            AddLine({m_x, y, -m_box.z}, {m_x, y, m_box.z});
        }
        for (const STick& tick : m_axes[2].ticks) {
            const double z = m_box.PlaceHeight(tick.value);
            AddLine({-m_box.x, m_y, z}, {m_box.x, m_y, z});
            AddLine({m_x, -m_box.y, z}, {m_x, m_box.y, z});
        }
        glEnd();
    }

    void Frame() const
    {
        SetColor(m_colors.frame);
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        glBegin(GL_QUADS);
        AddOutlines();
        glEnd();
    }

private:
    static void AddLine(const SPoint& from, const SPoint& to)
    {
        AddPoint(from);
        AddPoint(to);
    }

    void AddOutlines() const
    {
        const auto& [x, y, z] = std::array{m_box.x, m_box.y, m_box.z};
        for (const SPoint& corner : {SPoint{-x, -y, -z},
                                     {x, -y, -z},
                                     {x, y, -z},
                                     {-x, y, -z},
                                     {m_x, -y, -z},
                                     {m_x, y, -z},
                                     {m_x, y, z},
                                     {m_x, -y, z},
                                     {-x, m_y, -z},
                                     {x, m_y, -z},
                                     {x, m_y, z},
                                     {-x, m_y, z}})
            AddPoint(corner);
    }

    const SBox& m_box;
    const std::array<SAxis, 3>& m_axes;
    const SSceneColors& m_colors;
    double m_x; // where the wall across x stands
    double m_y;
};

void DrawWalls(const SScene& scene)
{
    CGLStack stack;
    // What stands behind everything needs no depth, and its lines lie in its faces.
    Require(stack.PushDepthMask(false));
    Require(stack.PushAttrib(GL_CURRENT_BIT | GL_LINE_BIT | GL_POLYGON_BIT));
    glLineWidth(static_cast<float>(scene.layout.lineWidth));
    const CWalls walls(scene);
    walls.Fill();
    walls.Rule();
    walls.Frame();
}

// Light that is fixed to the eye.
void SetupLight(const SPoint& light)
{
    const std::array<float, 4> direction{static_cast<float>(light.x), static_cast<float>(light.y),
                                         static_cast<float>(light.z), 0};
    constexpr std::array<float, 4> c_ambient{0.35F, 0.35F, 0.35F, 1};
    constexpr std::array<float, 4> c_diffuse{0.75F, 0.75F, 0.75F, 1};
    constexpr std::array<float, 4> c_shine{0.18F, 0.18F, 0.18F, 1};
    constexpr std::array<float, 4> c_white{1, 1, 1, 1};
    constexpr std::array<float, 4> c_none{0, 0, 0, 1};
    glLightfv(GL_LIGHT0, GL_POSITION, direction.data());
    glLightfv(GL_LIGHT0, GL_AMBIENT, c_ambient.data());
    glLightfv(GL_LIGHT0, GL_DIFFUSE, c_diffuse.data());
    glLightfv(GL_LIGHT0, GL_SPECULAR, c_shine.data());
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, c_none.data());
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    glLightModeli(GL_LIGHT_MODEL_COLOR_CONTROL, GL_SEPARATE_SPECULAR_COLOR);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, c_white.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, c_white.data());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 24);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
}

// Stretches a mesh to the height of the block, until the stack is popped.
void PushHeight(CGLStack& stack, const SScene& scene, const SMesh& mesh)
{
    Require(stack.PushMatrix());
    glScaled(1, 1, scene.box.z / mesh.z);
}

void DrawSurface(const SScene& scene, const CMeshBuffers& mesh, const CColorTexture& texture,
                 const CGrainTexture* grains)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_TEXTURE_BIT | GL_CURRENT_BIT));
    {
        CGLStack eyeStack;
        Require(eyeStack.PushMatrix());
        glLoadIdentity();
        SetupLight(scene.light);
    }
    texture.Bind();
    if (grains)
        grains->Bind(scene.box);
    PushHeight(stack, scene, mesh.GetMesh());
    glEnable(GL_NORMALIZE);
    mesh.DrawTriangles();
}

// The cut faces below the rim of the surface, down to the floor.
void DrawCut(const SScene& scene, const SMesh& mesh)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_CURRENT_BIT));
    PushHeight(stack, scene, mesh);
    const auto floor = static_cast<float>(-mesh.z);
    const SSceneColors& colors = scene.surroundings;
    glBegin(GL_QUADS);
    for (const auto& [first, second] : mesh.rim) {
        const auto& from = mesh.vertices[first].position;
        const auto& to = mesh.vertices[second].position;
        const bool isAlongX = std::abs(to[0] - from[0]) > std::abs(to[1] - from[1]);
        SetColor(isAlongX ? colors.cutAlongX : colors.cutAlongY);
        glVertex3fv(from.data());
        glVertex3fv(to.data());
        glVertex3f(to[0], to[1], floor);
        glVertex3f(from[0], from[1], floor);
    }
    glEnd();
}

// The face on which the block stands, seen from below.
void DrawBottom(const SScene& scene)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_CURRENT_BIT));
    SetColor(scene.surroundings.cutAlongX);
    const SBox& box = scene.box;
    glBegin(GL_QUADS);
    for (const SPoint& corner : {SPoint{-box.x, -box.y, -box.z},
                                 {box.x, -box.y, -box.z},
                                 {box.x, box.y, -box.z},
                                 {-box.x, box.y, -box.z}})
        AddPoint(corner);
    glEnd();
}

} // namespace

void DrawBlock(const SScene& scene, const CMeshBuffers& mesh, const CColorTexture& texture,
               const CGrainTexture* grains)
{
    CGLStack stack;
    PushView(stack, scene.layout.view);
    DrawWalls(scene);
    Require(stack.PushAttrib(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT));
    glEnable(GL_DEPTH_TEST);
    DrawSurface(scene, mesh, texture, grains);
    DrawCut(scene, mesh.GetMesh());
    if (scene.eye.z < 0)
        DrawBottom(scene);
}

} // namespace SurfaceView
