#if !defined(_WIN32)

#include "programs/offscreen/OffscreenContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <array>
#include <cstring>
#include <utility>

namespace Offscreen
{

// Everything that has to be given back, in whatever state the making stopped.
struct CContext::SHandles {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;

    SHandles() = default;
    SHandles(const SHandles&) = delete;
    SHandles& operator=(const SHandles&) = delete;

    ~SHandles()
    {
        if (display == EGL_NO_DISPLAY)
            return;
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (context != EGL_NO_CONTEXT)
            eglDestroyContext(display, context);
        if (surface != EGL_NO_SURFACE)
            eglDestroySurface(display, surface);
        // The display stays open: closing it would unload the driver, which the next context would load
        // again, and leave behind what the driver never gives back.
        eglReleaseThread();
    }
};

namespace
{

// What failed, with the error code of EGL where it gives one.
std::string Explain(const char* what)
{
    constexpr std::array c_names{"EGL_NOT_INITIALIZED",     "EGL_BAD_ACCESS",        "EGL_BAD_ALLOC",
                                 "EGL_BAD_ATTRIBUTE",       "EGL_BAD_CONFIG",        "EGL_BAD_CONTEXT",
                                 "EGL_BAD_CURRENT_SURFACE", "EGL_BAD_DISPLAY",       "EGL_BAD_MATCH",
                                 "EGL_BAD_NATIVE_PIXMAP",   "EGL_BAD_NATIVE_WINDOW", "EGL_BAD_PARAMETER",
                                 "EGL_BAD_SURFACE",         "EGL_CONTEXT_LOST"};
    std::string text = what;
    const EGLint error = eglGetError();
    if (error < EGL_NOT_INITIALIZED || error > EGL_CONTEXT_LOST)
        return text;
    text += " (";
    text += c_names[static_cast<std::size_t>(error - EGL_NOT_INITIALIZED)];
    text += ")";
    return text;
}

// Whether the EGL library offers an extension that needs no display.
bool HasClientExtension(const char* name)
{
    const char* extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    eglGetError(); // a library that knows no such extensions complains
    return extensions && std::strstr(extensions, name);
}

EGLDisplay GetSurfacelessDisplay()
{
    if (!HasClientExtension("EGL_EXT_platform_base") || !HasClientExtension("EGL_MESA_platform_surfaceless"))
        return EGL_NO_DISPLAY;
    const auto getPlatformDisplay =
        reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (!getPlatformDisplay)
        return EGL_NO_DISPLAY;
    return getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
}

EGLDisplay OpenDisplay()
{
    EGLDisplay display = GetSurfacelessDisplay();
    if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr))
        return display;
    display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
    return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) ? display : EGL_NO_DISPLAY;
}

EGLConfig ChooseConfig(EGLDisplay display)
{
    constexpr std::array<EGLint, 17> c_wanted{EGL_SURFACE_TYPE,
                                              EGL_PBUFFER_BIT,
                                              EGL_RENDERABLE_TYPE,
                                              EGL_OPENGL_BIT,
                                              EGL_RED_SIZE,
                                              8,
                                              EGL_GREEN_SIZE,
                                              8,
                                              EGL_BLUE_SIZE,
                                              8,
                                              EGL_ALPHA_SIZE,
                                              8,
                                              EGL_DEPTH_SIZE,
                                              24,
                                              EGL_STENCIL_SIZE,
                                              8,
                                              EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    return eglChooseConfig(display, c_wanted.data(), &config, 1, &count) && count == 1 ? config : nullptr;
}

// A picture in memory; none when the driver would silently make a smaller one.
EGLSurface CreateSurface(EGLDisplay display, EGLConfig config, EGLint width, EGLint height)
{
    EGLint maxWidth = 0;
    EGLint maxHeight = 0;
    if (!eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_WIDTH, &maxWidth) ||
        !eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_HEIGHT, &maxHeight) || width < 1 || height < 1 ||
        width > maxWidth || height > maxHeight)
        return EGL_NO_SURFACE;
    const std::array<EGLint, 5> size{EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    return eglCreatePbufferSurface(display, config, size.data());
}

} // namespace

std::unique_ptr<CContext> CContext::Make(int width, int height, std::string& reason)
{
    const auto fail = [&reason](const char* what) {
        reason = Explain(what);
        return nullptr;
    };
    auto handles = std::make_unique<SHandles>();
    handles->display = OpenDisplay();
    if (handles->display == EGL_NO_DISPLAY)
        return fail("no display of EGL can be opened");
    EGLConfig config = eglBindAPI(EGL_OPENGL_API) ? ChooseConfig(handles->display) : nullptr;
    if (!config)
        return fail("the driver has no off-screen pixel format for OpenGL");
    handles->surface = CreateSurface(handles->display, config, width, height);
    if (handles->surface == EGL_NO_SURFACE)
        return fail("the driver makes no off-screen picture of this size");
    // Without a version in the attributes, the context is one with all of the older functions.
    handles->context = eglCreateContext(handles->display, config, EGL_NO_CONTEXT, nullptr);
    if (handles->context == EGL_NO_CONTEXT ||
        !eglMakeCurrent(handles->display, handles->surface, handles->surface, handles->context))
        return fail("the driver makes no OpenGL context");
    return std::unique_ptr<CContext>(new CContext(std::move(handles)));
}

void* CContext::FindFunction(const char* name)
{
    return reinterpret_cast<void*>(eglGetProcAddress(name));
}

} // namespace Offscreen

#endif
