#if !defined(_WIN32)

#include "tests/gl/FaultyDriver.h"

#include <EGL/egl.h>

namespace
{

int s_countdown = 0;
GLenum s_lasting = GL_NO_ERROR;

} // namespace

void FaultyDriver::FailBefore(int count)
{
    s_countdown = count;
}

void FaultyDriver::StayBroken(GLenum code)
{
    s_lasting = code;
}

// Found before the driver's own function, which is asked for by its address.
extern "C" GLenum glGetError()
{
    static const auto driver = reinterpret_cast<GLenum (*)()>(eglGetProcAddress("glGetError"));
    if (s_lasting != GL_NO_ERROR)
        return s_lasting;
    if (s_countdown > 0 && --s_countdown == 0)
        glEnable(GL_NONE);
    return driver();
}

#endif
