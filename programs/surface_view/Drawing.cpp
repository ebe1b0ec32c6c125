#include "programs/surface_view/Drawing.h"

#include "gl/GLStack.h"
#include "gl/GLUtils.h"
#include "gl/OpenGLError.h"
#include "programs/surface_view/ColorTexture.h"
#include "programs/surface_view/DrawingSteps.h"

#include <GL/gl.h>

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

void DrawStrokes(const SLayout& layout)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_CURRENT_BIT | GL_LINE_BIT));
    glLineWidth(static_cast<float>(layout.lineWidth));
    SetColor(c_frame);
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

void DrawLabels(const std::vector<SLabel>& labels, const CFont& font)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_CURRENT_BIT | GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    for (const SLabel& label : labels) {
        const SPixels pixels = font.Draw(label.text, label.height, c_text);
        Require(CommonUI::PixelPos2d(label.place.left, label.place.top));
        glDrawPixels(pixels.size.cx, pixels.size.cy, GL_RGBA, GL_UNSIGNED_BYTE, pixels.bytes.data());
    }
    // Mesa 22 forgets to give back what changed while attributes of other groups were pushed, as PixelPos2d
    // does with the raster position, unless something of its group changes afterwards.
    SetColor(c_text);
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

void Draw(const SScene& scene, SSize size, const CFont& font)
{
    CGLStack stack;
    Require(stack.PushAttrib(GL_COLOR_BUFFER_BIT | GL_VIEWPORT_BIT));
    glViewport(0, 0, size.cx, size.cy);
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    const CColorTexture texture(scene.colors);
    DrawBlock(scene, texture);
    {
        CGLStack pixels;
        Require(pixels.PushWindowCoord(true));
        DrawRamp(scene.layout.legend, texture);
        DrawStrokes(scene.layout);
    }
    DrawLabels(scene.layout.labels, font);
    Require(!CommonUI::OpenGLErrorMsg(u"Draw the picture", u"Draw", u"Drawing", __LINE__));
}

SPixels ReadPixels(SSize size)
{
    SPixels pixels{.size = size};
    pixels.bytes.resize(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy) * 4);
    glReadPixels(0, 0, size.cx, size.cy, GL_RGBA, GL_UNSIGNED_BYTE, pixels.bytes.data());
    return pixels;
}

} // namespace SurfaceView
