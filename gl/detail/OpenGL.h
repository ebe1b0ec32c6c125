#pragma once

// OpenGL and GLU as the platform declares them.
#if defined(_WIN32)
#include <windows.h>
#endif

#include <GL/gl.h>
#include <GL/glu.h>
