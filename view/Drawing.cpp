#include "view/Drawing.h"

#include "gl/GLStack.h"
#include "gl/GLUtils.h"
#include "gl/OpenGLError.h"
#include "view/ColorTexture.h"
#include "view/detail/DrawingSteps.h"
#include "view/detail/OpenGL.h"
#include "view/MeshBuffers.h"

#include <optional>
#include <stdexcept>

namespace SurfaceView
{

using CommonUI::CGLStack;
using CommonUI::SColor;
using CommonUI::SRect;
using CommonUI::SSize;

namespace
{

// A rectangle with the colours of the scale from its lower to its upper side.
void DrawRamp(const SRect& place, const CColorTexture& texture)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_ENABLE_BIT | GL_TEXTURE_BIT | GL_CURRENT_BIT));
    texture.Bind();
    glColor3ub(255, 255, 255);
    glBegin(GL_QUADS);
    glTexCoord1f(0);
    glVertex2i(place.left, place.top);
    glVertex2i(place.right, place.top);
    glTexCoord1f(1);
    glVertex2i(place.right, place.bottom);
    glVertex2i(place.left, place.bottom);
    glEnd();
}

void DrawStrokes(const SLayout& layout, SColor color)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_CURRENT_BIT | GL_LINE_BIT));
    glLineWidth(static_cast<float>(layout.lineWidth));
    SetColor(color);
    glBegin(GL_LINE_LOOP);
    glVertex2i(layout.legend.left, layout.legend.top);
    glVertex2i(layout.legend.right, layout.legend.top);
    glVertex2i(layout.legend.right, layout.legend.bottom);
    glVertex2i(layout.legend.left, layout.legend.bottom);
    glEnd();
    glBegin(GL_LINES);
    for (const SStroke& stroke : layout.strokes) {
        glVertex2d(stroke.from.x, stroke.from.y);
        glVertex2d(stroke.to.x, stroke.to.y);
    }
    glEnd();
}

// @return how many bytes of pictures were sent
std::size_t DrawLabels(const std::vector<SLabel>& labels, const CFont& font, SColor color)
{
    std::size_t bytes = 0;
    CGLStack stack;
    Require(stack.PushAttrib(GL_CURRENT_BIT | GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); // the picture itself lets nothing shine through
    for (const SLabel& label : labels) {
        const SPixels pixels = font.Draw(label.text, label.height, color);
        bytes += pixels.bytes.size();
        Require(CommonUI::PixelPos2d(label.place.left, label.place.top));
        glDrawPixels(pixels.size.cx, pixels.size.cy, GL_RGBA, GL_UNSIGNED_BYTE, pixels.bytes.data());
    }
    // Mesa 22 forgets to give back what changed while attributes of other groups were pushed, as PixelPos2d
    // does with the raster position, unless something of its group changes afterwards.
    SetColor(color);
    return bytes;
}

} // namespace

void Require(bool succeeded)
{
    if (!succeeded)
        throw std::runtime_error("OpenGL could not draw the picture");
}

void SetColor(SColor color)
{
    glColor3ub(color.red, color.green, color.blue);
}

SFrameWork Draw(const SScene& scene, SSize size, const CFont& font, const SKept& kept)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_COLOR_BUFFER_BIT | GL_VIEWPORT_BIT));
    glViewport(0, 0, size.cx, size.cy);
    const auto share = [](std::uint8_t part) { return static_cast<float>(part) / 255; };
    const SColor ground = scene.surroundings.ground;
    glClearColor(share(ground.red), share(ground.green), share(ground.blue), 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    std::optional<CColorTexture> ownTexture;
    std::optional<CMeshBuffers> ownMesh;
    const CColorTexture& texture = kept.texture ? *kept.texture : ownTexture.emplace(scene.colors);
    const CMeshBuffers& mesh = kept.mesh ? *kept.mesh : ownMesh.emplace(scene.mesh, false);
    SFrameWork work{.vertices = mesh.GetMesh().vertices.size(),
                    .triangles = mesh.GetMesh().triangles.size(),
                    .bytesSent = (ownTexture ? scene.colors.size() * sizeof(SColor) : 0) +
                                 (mesh.IsKept() ? 0 : mesh.GetByteCount())};
    DrawBlock(scene, mesh, texture, kept.grains);
    {
        CGLStack pixels;
        Require(pixels.PushWindowCoord(true));
        DrawRamp(scene.layout.legend, texture);
        DrawStrokes(scene.layout, scene.surroundings.frame);
    }
    work.bytesSent += DrawLabels(scene.layout.labels, font, scene.surroundings.text);
    Require(!CommonUI::OpenGLErrorMsg(u"Draw the picture", u"Draw", u"Drawing", __LINE__));
    return work;
}

SPixels ReadPixels(SSize size)
{
    SPixels pixels{.size = size};
    pixels.bytes.resize(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy) * 4);
    glReadPixels(0, 0, size.cx, size.cy, GL_RGBA, GL_UNSIGNED_BYTE, pixels.bytes.data());
    return pixels;
}

} // namespace SurfaceView
