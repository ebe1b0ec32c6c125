#include "gl/GLUtils.h"

#include "gl/detail/ErrorTest.h"
#include "gl/GLStack.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace CommonUI
{

namespace
{

constexpr double c_pi = std::numbers::pi;

void SetupPerspective(double fieldOfView, double zNear, double zFar, double width, double height)
{
    const double aspect = width / std::max(height, 1.0);
    double vertical = fieldOfView;
    if (aspect < 1.0) {
        const double tangent = std::tan(fieldOfView * 0.5 * c_pi / 180);
        vertical = std::atan(tangent * height / std::max(width, 1.0)) * 2.0 * 180 / c_pi;
    }
    OpenGL().perspective(vertical, aspect, zNear, zFar);
}

void SetupOrthographic(double fieldOfView, double zNear, double zFar, double width, double height)
{
    const double aspect = width / std::max(height, 1.0);
    const double shorter = std::tan(fieldOfView * 0.5 * c_pi / 180) * zFar;
    const double halfWidth = aspect < 1.0 ? shorter : shorter * aspect;
    const double halfHeight = aspect < 1.0 ? height / std::max(width, 1.0) * shorter : shorter;
    OpenGL().ortho(-halfWidth, halfWidth, -halfHeight, halfHeight, zNear, zFar);
}

constexpr SGLStep c_pixelPos4d{u"PixelPos4d", u"PixelPos4d", u"GLUtils"};
constexpr SGLStep c_pixelPos4f{u"PixelPos4f", u"PixelPos4f", u"GLUtils"};

// @param setPosition calls the variant of glRasterPos
template<class FSetPosition>
bool SetPixelPosition(const SGLStep& step, double z, FSetPosition setPosition)
{
    CGLStack stack;
    if (!stack.PushWindowCoord(true) || !stack.PushAttrib(GL_VIEWPORT_BIT))
        return false;
    OpenGL().depthRange(z, z);
    setPosition();
    return !HasFailed(step);
}

} // namespace

void SetupProjectionMatrix(bool orthographic, double fieldOfView, double zNear, double zFar,
                           const SRect& viewport)
{
    // Exact, and without the overflow of integers.
    const double width = static_cast<double>(viewport.right) - viewport.left;
    const double height = static_cast<double>(viewport.bottom) - viewport.top;
    if (orthographic)
        SetupOrthographic(fieldOfView, zNear, zFar, width, height);
    else
        SetupPerspective(fieldOfView, zNear, zFar, width, height);
}

void SetupProjectionMatrix(bool orthographic, double fieldOfView, double zNear, double zFar)
{
    GLint viewport[4] = {};
    OpenGL().getIntegerv(GL_VIEWPORT, viewport);
    const auto [x, y, width, height] = viewport;
    SetupProjectionMatrix(orthographic, fieldOfView, zNear, zFar, {x, y, x + width, y + height});
}

bool PixelPos4d(double x, double y, double z, double w)
{
    return SetPixelPosition(c_pixelPos4d, z, [=] { OpenGL().rasterPos4d(x, y, z, w); });
}

bool PixelPos4f(float x, float y, float z, float w)
{
    return SetPixelPosition(c_pixelPos4f, z, [=] { OpenGL().rasterPos4f(x, y, z, w); });
}

bool PixelPos2d(double x, double y)
{
    return PixelPos4d(x, y, 0.0, 1.0);
}

bool PixelPos2f(float x, float y)
{
    return PixelPos4f(x, y, 0.0F, 1.0F);
}

void Transform(double x, double y, double z, const double* matrix, double& outX, double& outY, double& outZ)
{
    const double* m = matrix;
    outX = m[0] * x + m[4] * y + m[8] * z + m[12];
    outY = m[1] * x + m[5] * y + m[9] * z + m[13];
    outZ = m[2] * x + m[6] * y + m[10] * z + m[14];
}

std::u16string_view GetMatrixModeName(unsigned int mode)
{
    switch (mode) {
    case GL_MODELVIEW:
        return u"GL_MODELVIEW";
    case GL_PROJECTION:
        return u"GL_PROJECTION";
    case GL_TEXTURE:
        return u"GL_TEXTURE";
    default:
        return {};
    }
}

} // namespace CommonUI
