#include "gl/WglExtensions.h"

#include "gl/detail/OpenGLFunctions.h"
#include "platform/GLEntryPoints.h"

#include <cstring>

namespace CommonUI
{

namespace
{

template<class FFunction>
bool LookUp(bool supported, const char* name, FFunction& function)
{
    function = supported ? reinterpret_cast<FFunction>(GetGLEntryPoints().GetProcedure(name)) : nullptr;
    return function != nullptr;
}

bool Lists(const char* extensions, const char* name)
{
    return extensions && std::strstr(extensions, name);
}

} // namespace

CWGL_ARB_extensions_string::CWGL_ARB_extensions_string()
{
    LookUp(true, "wglGetExtensionsStringARB", wglGetExtensionsStringARB);
}

const char* CWGL_ARB_extensions_string::GetExtensions(HDC hdc) const
{
    return wglGetExtensionsStringARB ? wglGetExtensionsStringARB(hdc) : nullptr;
}

bool CWGL_ARB_extensions_string::IsSupported(HDC hdc, const char* name) const
{
    return Lists(reinterpret_cast<const char*>(OpenGL().getString(GL_EXTENSIONS)), name) ||
           Lists(GetExtensions(hdc), name);
}

bool CWGL_ARB_pixel_format::Load(HDC hdc)
{
    const bool supported = IsSupported(hdc, "WGL_ARB_pixel_format");
    bool complete = LookUp(supported, "wglGetPixelFormatAttribivARB", wglGetPixelFormatAttribivARB);
    complete &= LookUp(supported, "wglGetPixelFormatAttribfvARB", wglGetPixelFormatAttribfvARB);
    complete &= LookUp(supported, "wglChoosePixelFormatARB", wglChoosePixelFormatARB);
    return complete;
}

bool CWGL_ARB_pbuffer::Load(HDC hdc)
{
    const bool supported = IsSupported(hdc, "WGL_ARB_pbuffer");
    bool complete = LookUp(supported, "wglCreatePbufferARB", wglCreatePbufferARB);
    complete &= LookUp(supported, "wglGetPbufferDCARB", wglGetPbufferDCARB);
    complete &= LookUp(supported, "wglReleasePbufferDCARB", wglReleasePbufferDCARB);
    complete &= LookUp(supported, "wglDestroyPbufferARB", wglDestroyPbufferARB);
    complete &= LookUp(supported, "wglQueryPbufferARB", wglQueryPbufferARB);
    return complete;
}

} // namespace CommonUI
