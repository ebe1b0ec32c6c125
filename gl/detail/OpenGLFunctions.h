#pragma once

#include "gl/detail/OpenGL.h"

namespace CommonUI
{

/// The functions of OpenGL and GLU that the library calls. Where the system does not have them they do
/// nothing, and give 0: as all of them do while no context is current.
struct SOpenGLFunctions {
    decltype(&glDepthMask) depthMask;
    decltype(&glDepthRange) depthRange;
    decltype(&glGetDoublev) getDoublev;
    decltype(&glGetError) getError;
    decltype(&glGetIntegerv) getIntegerv;
    decltype(&glGetString) getString;
    decltype(&glLoadIdentity) loadIdentity;
    decltype(&glMatrixMode) matrixMode;
    decltype(&glOrtho) ortho;
    decltype(&glPopAttrib) popAttrib;
    decltype(&glPopMatrix) popMatrix;
    decltype(&glPushAttrib) pushAttrib;
    decltype(&glPushMatrix) pushMatrix;
    decltype(&glRasterPos4d) rasterPos4d;
    decltype(&glRasterPos4f) rasterPos4f;
    decltype(&gluErrorString) errorString;
    decltype(&gluPerspective) perspective;
};

#if defined(COMMONUI_OPENGL_ON_DEMAND)

/// The functions that the process has; else those of the system's libraries, which the first call loads:
/// programs that draw nothing shall not wait for them when they start. May be called on any thread.
const SOpenGLFunctions& OpenGL();

#else

/// The functions that the library is linked with.
inline SOpenGLFunctions OpenGL()
{
    return {
        .depthMask = glDepthMask,
        .depthRange = glDepthRange,
        .getDoublev = glGetDoublev,
        .getError = glGetError,
        .getIntegerv = glGetIntegerv,
        .getString = glGetString,
        .loadIdentity = glLoadIdentity,
        .matrixMode = glMatrixMode,
        .ortho = glOrtho,
        .popAttrib = glPopAttrib,
        .popMatrix = glPopMatrix,
        .pushAttrib = glPushAttrib,
        .pushMatrix = glPushMatrix,
        .rasterPos4d = glRasterPos4d,
        .rasterPos4f = glRasterPos4f,
        .errorString = gluErrorString,
        .perspective = gluPerspective,
    };
}

#endif

} // namespace CommonUI
