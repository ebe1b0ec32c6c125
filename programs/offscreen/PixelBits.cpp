#include "programs/offscreen/PixelBits.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#include <GL/gl.h>

namespace Offscreen
{

namespace
{

int GetInteger(GLenum name)
{
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

} // namespace

SPixelBits ReadPixelBits()
{
    return {.red = GetInteger(GL_RED_BITS),
            .green = GetInteger(GL_GREEN_BITS),
            .blue = GetInteger(GL_BLUE_BITS),
            .alpha = GetInteger(GL_ALPHA_BITS),
            .depth = GetInteger(GL_DEPTH_BITS),
            .stencil = GetInteger(GL_STENCIL_BITS),
            .accumRed = GetInteger(GL_ACCUM_RED_BITS),
            .accumGreen = GetInteger(GL_ACCUM_GREEN_BITS),
            .accumBlue = GetInteger(GL_ACCUM_BLUE_BITS),
            .accumAlpha = GetInteger(GL_ACCUM_ALPHA_BITS),
            .auxBuffers = GetInteger(GL_AUX_BUFFERS),
            .doubleBuffered = GetInteger(GL_DOUBLEBUFFER) != 0,
            .stereo = GetInteger(GL_STEREO) != 0};
}

} // namespace Offscreen
