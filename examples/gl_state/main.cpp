#include <CommonUI/gl/GLStack.h>
#include <CommonUI/gl/OpenGLError.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <array>
#include <iostream>

using namespace CommonUI;

namespace
{

constexpr int c_size = 64;

// An OpenGL context with a picture in memory. A program with a window has one already.
bool MakeContext()
{
    const auto getDisplay =
        reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    EGLDisplay display = getDisplay ? getDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr)
                                    : eglGetDisplay(EGL_DEFAULT_DISPLAY);
    constexpr std::array<EGLint, 9> c_wanted{EGL_SURFACE_TYPE,
                                             EGL_PBUFFER_BIT,
                                             EGL_RENDERABLE_TYPE,
                                             EGL_OPENGL_BIT,
                                             EGL_RED_SIZE,
                                             8,
                                             EGL_DEPTH_SIZE,
                                             24,
                                             EGL_NONE};
    constexpr std::array<EGLint, 5> c_picture{EGL_WIDTH, c_size, EGL_HEIGHT, c_size, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglInitialize(display, nullptr, nullptr) || !eglBindAPI(EGL_OPENGL_API) ||
        !eglChooseConfig(display, c_wanted.data(), &config, 1, &count) || count != 1)
        return false;
    EGLSurface surface = eglCreatePbufferSurface(display, config, c_picture.data());
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    return eglMakeCurrent(display, surface, surface, context);
}

// A label on top of a scene: in pixels from the lower left, in front of everything, without touching the
// depths. However this is left, the state is then what it was.
bool DrawLabel()
{
    CGLStack stack;
    if (!stack.PushWindowCoord(true) || !stack.PushDepthMask(false) || !stack.PushAttrib(GL_CURRENT_BIT))
        return false; // the user has been told, and what was pushed is undone
    glColor3f(1, 0, 0);
    glRecti(8, 8, 24, 16);
    return !OpenGLErrorMsg(u"Drawing a label", u"DrawLabel", {}, 0);
}

int ReadRed(int x, int y)
{
    std::array<GLubyte, 4> pixel{};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    return pixel[0];
}

} // namespace

int main()
{
    if (!MakeContext()) {
        std::cerr << "there is no driver of OpenGL that draws into memory\n";
        return 77; // nothing to show, but no fault
    }
    glViewport(0, 0, c_size, c_size);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glColor3f(0, 1, 0);
    if (!DrawLabel())
        return 1;

    GLint mode = 0;
    std::array<GLfloat, 4> color{};
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    glGetFloatv(GL_CURRENT_COLOR, color.data());
    const bool isRestored = mode == GL_PROJECTION && color[0] == 0 && color[1] == 1;
    std::cout << "red in the label " << ReadRed(16, 12) << ", beside it " << ReadRed(40, 40)
              << ", the state is " << (isRestored ? "what it was" : "another one") << "\n";
    return isRestored ? 0 : 1;
}
