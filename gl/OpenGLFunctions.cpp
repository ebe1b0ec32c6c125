#include "gl/detail/OpenGLFunctions.h"

#if defined(COMMONUI_OPENGL_ON_DEMAND)

#include "common/Diagnostics.h"

#include <dlfcn.h>

namespace CommonUI
{

namespace
{

// A library of the system, which is loaded when something is looked for that the process does not have yet.
class CSystemLibrary
{
public:
    explicit CSystemLibrary(const char* name)
        : m_name(name)
    {
    }

    template<class TResult, class... TArgs>
    void Find(TResult (*&function)(TArgs...), const char* name)
    {
        void* found = dlsym(RTLD_DEFAULT, name);
        if (!found && Load())
            found = dlsym(m_library, name);
        if (found)
            function = reinterpret_cast<TResult (*)(TArgs...)>(found);
        else
            function = [](TArgs...) { return TResult(); };
    }

private:
    bool Load()
    {
        if (!m_tried) {
            m_tried = true;
            m_library = dlopen(m_name, RTLD_NOW | RTLD_LOCAL);
            if (!m_library)
                GetDiagnostics().Write({}, EDiagnosticLevel::Error,
                                       CStr::Format(u"OpenGL is not there: %s\n", CStr::FromUtf8(dlerror())));
        }
        return m_library != nullptr;
    }

    const char* m_name;
    void* m_library = nullptr; // for good: the functions are in use until the process ends
    bool m_tried = false;
};

SOpenGLFunctions FindFunctions()
{
    SOpenGLFunctions functions{};
    CSystemLibrary gl("libOpenGL.so.0");
    gl.Find(functions.depthMask, "glDepthMask");
    gl.Find(functions.depthRange, "glDepthRange");
    gl.Find(functions.getDoublev, "glGetDoublev");
    gl.Find(functions.getError, "glGetError");
    gl.Find(functions.getIntegerv, "glGetIntegerv");
    gl.Find(functions.getString, "glGetString");
    gl.Find(functions.loadIdentity, "glLoadIdentity");
    gl.Find(functions.matrixMode, "glMatrixMode");
    gl.Find(functions.ortho, "glOrtho");
    gl.Find(functions.popAttrib, "glPopAttrib");
    gl.Find(functions.popMatrix, "glPopMatrix");
    gl.Find(functions.pushAttrib, "glPushAttrib");
    gl.Find(functions.pushMatrix, "glPushMatrix");
    gl.Find(functions.rasterPos4d, "glRasterPos4d");
    gl.Find(functions.rasterPos4f, "glRasterPos4f");
    CSystemLibrary glu("libGLU.so.1");
    glu.Find(functions.errorString, "gluErrorString");
    glu.Find(functions.perspective, "gluPerspective");
    return functions;
}

} // namespace

const SOpenGLFunctions& OpenGL()
{
    static const SOpenGLFunctions functions = FindFunctions();
    return functions;
}

} // namespace CommonUI

#endif
