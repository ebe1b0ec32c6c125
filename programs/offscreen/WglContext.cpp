#if defined(_WIN32)

#include "programs/offscreen/OffscreenContext.h"

#include <windows.h>

#include <GL/gl.h>
#include <GL/wglext.h>

#include <array>
#include <utility>

namespace Offscreen
{

namespace
{

// A window that nobody sees, with a context of its own: WGL tells the entry points of its extensions only
// where a context is current.
class CHiddenWindow
{
public:
    CHiddenWindow() = default;
    CHiddenWindow(const CHiddenWindow&) = delete;
    CHiddenWindow& operator=(const CHiddenWindow&) = delete;
    ~CHiddenWindow()
    {
        if (m_context)
            wglDeleteContext(m_context);
        if (m_device)
            ReleaseDC(m_window, m_device);
        if (m_window)
            DestroyWindow(m_window);
    }

    // @return whether it is there and its context current
    bool Make()
    {
        m_window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 16, 16, nullptr, nullptr,
                                   GetModuleHandleW(nullptr), nullptr);
        if (!m_window)
            return false;
        m_device = GetDC(m_window);
        PIXELFORMATDESCRIPTOR wanted{};
        wanted.nSize = sizeof wanted;
        wanted.nVersion = 1;
        wanted.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
        wanted.cColorBits = 24;
        wanted.cDepthBits = 24;
        const int format = m_device ? ChoosePixelFormat(m_device, &wanted) : 0;
        if (format == 0 || !SetPixelFormat(m_device, format, &wanted))
            return false;
        m_context = wglCreateContext(m_device);
        return m_context && wglMakeCurrent(m_device, m_context);
    }

    HDC GetDevice() const noexcept { return m_device; }

private:
    HWND m_window = nullptr;
    HDC m_device = nullptr;
    HGLRC m_context = nullptr;
};

// What the driver has for pictures in memory.
struct SExtensions {
    PFNWGLCHOOSEPIXELFORMATARBPROC choose = nullptr;
    PFNWGLCREATEPBUFFERARBPROC create = nullptr;
    PFNWGLGETPBUFFERDCARBPROC getDevice = nullptr;
    PFNWGLRELEASEPBUFFERDCARBPROC releaseDevice = nullptr;
    PFNWGLDESTROYPBUFFERARBPROC destroy = nullptr;
    PFNWGLQUERYPBUFFERARBPROC query = nullptr;

    bool Find()
    {
        return Find(choose, "wglChoosePixelFormatARB") && Find(create, "wglCreatePbufferARB") &&
               Find(getDevice, "wglGetPbufferDCARB") && Find(releaseDevice, "wglReleasePbufferDCARB") &&
               Find(destroy, "wglDestroyPbufferARB") && Find(query, "wglQueryPbufferARB");
    }

private:
    template<class TFunction>
    static bool Find(TFunction& function, const char* name)
    {
        function = reinterpret_cast<TFunction>(reinterpret_cast<void*>(wglGetProcAddress(name)));
        return function != nullptr;
    }
};

// Two buffers: where there is one only, what is drawn goes on to the window system, of which some end the
// process for a picture with opacities.
int ChooseFormat(const SExtensions& driver, HDC device)
{
    constexpr std::array c_wanted{WGL_DRAW_TO_PBUFFER_ARB,
                                  1,
                                  WGL_SUPPORT_OPENGL_ARB,
                                  1,
                                  WGL_DOUBLE_BUFFER_ARB,
                                  1,
                                  WGL_RED_BITS_ARB,
                                  8,
                                  WGL_GREEN_BITS_ARB,
                                  8,
                                  WGL_BLUE_BITS_ARB,
                                  8,
                                  WGL_ALPHA_BITS_ARB,
                                  8,
                                  WGL_DEPTH_BITS_ARB,
                                  24,
                                  WGL_STENCIL_BITS_ARB,
                                  8,
                                  0};
    int format = 0;
    UINT count = 0;
    return driver.choose(device, c_wanted.data(), nullptr, 1, &format, &count) && count > 0 ? format : 0;
}

} // namespace

// Everything that has to be given back, in whatever state the making stopped.
struct CContext::SHandles {
    CHiddenWindow window{};
    SExtensions driver{};
    HPBUFFERARB buffer = nullptr;
    HDC device = nullptr;
    HGLRC context = nullptr;

    SHandles() = default;
    SHandles(const SHandles&) = delete;
    SHandles& operator=(const SHandles&) = delete;

    ~SHandles()
    {
        wglMakeCurrent(nullptr, nullptr);
        if (context)
            wglDeleteContext(context);
        if (device)
            driver.releaseDevice(buffer, device);
        if (buffer)
            driver.destroy(buffer);
    }

    // @return false also when the driver makes one of another size
    bool MakeBuffer(int format, int width, int height)
    {
        if (width < 1 || height < 1)
            return false;
        constexpr int c_none = 0;
        buffer = driver.create(window.GetDevice(), format, width, height, &c_none);
        int madeWidth = 0;
        int madeHeight = 0;
        return buffer && driver.query(buffer, WGL_PBUFFER_WIDTH_ARB, &madeWidth) &&
               driver.query(buffer, WGL_PBUFFER_HEIGHT_ARB, &madeHeight) && madeWidth == width &&
               madeHeight == height;
    }

    bool MakeContext()
    {
        device = driver.getDevice(buffer);
        context = device ? wglCreateContext(device) : nullptr;
        return context && wglMakeCurrent(device, context);
    }
};

std::unique_ptr<CContext> CContext::Make(int width, int height, std::string& reason)
{
    const auto fail = [&reason](const char* what) {
        reason = std::string(what) + " (error " + std::to_string(GetLastError()) + ")";
        return nullptr;
    };
    auto handles = std::make_unique<SHandles>();
    if (!handles->window.Make())
        return fail("the driver makes no OpenGL context");
    if (!handles->driver.Find())
        return fail("the driver has no off-screen pictures");
    const int format = ChooseFormat(handles->driver, handles->window.GetDevice());
    if (format == 0)
        return fail("the driver has no off-screen pixel format for OpenGL");
    if (!handles->MakeBuffer(format, width, height))
        return fail("the driver makes no off-screen picture of this size");
    if (!handles->MakeContext())
        return fail("the driver makes no OpenGL context");
    return std::unique_ptr<CContext>(new CContext(std::move(handles)));
}

void* CContext::FindFunction(const char* name)
{
    return reinterpret_cast<void*>(wglGetProcAddress(name));
}

} // namespace Offscreen

#endif
