#pragma once

#include "../export/Export.h"
#include "../platform/PixelFormat.h"

// The calling convention of WGL, which only 32-bit Windows distinguishes.
#if defined(_WIN32) && !defined(_WIN64)
#define COMMONUI_WGL_CALL __stdcall
#else
#define COMMONUI_WGL_CALL
#endif

struct HPBUFFERARB__; // NOLINT(bugprone-reserved-identifier): the name that WGL gives it

namespace CommonUI
{

/// Names an off-screen buffer of the window system.
using HPBUFFERARB = ::HPBUFFERARB__*;

/// The window system's extension that lists its extensions. The members of this and the following classes
/// have the names and types that the extensions publish; what they take and return stands there.
class COMMONUI_API CWGL_ARB_extensions_string
{
public:
    /// Looks the entry point up, which needs a current context.
    CWGL_ARB_extensions_string();

    /// The extensions of a device context, separated by blanks; null when the entry point is missing or has
    /// no answer. The driver owns the text.
    const char* GetExtensions(HDC hdc) const;
    /// Whether OpenGL or the window system lists an extension. A longer name that contains it counts.
    bool IsSupported(HDC hdc, const char* name) const;

    /// The names of the extensions of a device context; see GetExtensions. Null when it is missing.
    const char*(COMMONUI_WGL_CALL* wglGetExtensionsStringARB)(HDC hdc) = nullptr;
};

/// The extension for choosing pixel formats by attributes.
class COMMONUI_API CWGL_ARB_pixel_format : public CWGL_ARB_extensions_string
{
public:
    /// Looks the entry points up; they are null when the device context does not support the extension.
    /// @return whether all of them are there
    bool Load(HDC hdc);

    /// Reads attributes of a pixel format as integers. @return 0 on failure. Null when it is missing.
    int(COMMONUI_WGL_CALL* wglGetPixelFormatAttribivARB)(HDC hdc, int format, int layer, unsigned int count,
                                                         const int* attributes, int* values) = nullptr;
    /// The same as real numbers.
    int(COMMONUI_WGL_CALL* wglGetPixelFormatAttribfvARB)(HDC hdc, int format, int layer, unsigned int count,
                                                         const int* attributes, float* values) = nullptr;
    /// Finds pixel formats by attributes, the best first. @return 0 on failure. Null when it is missing.
    int(COMMONUI_WGL_CALL* wglChoosePixelFormatARB)(HDC hdc, const int* integerAttributes,
                                                    const float* realAttributes, unsigned int capacity,
                                                    int* formats, unsigned int* count) = nullptr;
};

/// The extension for off-screen buffers.
class COMMONUI_API CWGL_ARB_pbuffer : public CWGL_ARB_extensions_string
{
public:
    /// Looks the entry points up; they are null when the device context does not support the extension.
    /// @return whether all of them are there
    bool Load(HDC hdc);

    /// Makes an off-screen buffer. @return null on failure. Null when it is missing.
    HPBUFFERARB(COMMONUI_WGL_CALL* wglCreatePbufferARB)
    (HDC hdc, int format, int width, int height, const int* attributes) = nullptr;
    /// The device context of a buffer, to be given back. @return null on failure. Null when it is missing.
    HDC(COMMONUI_WGL_CALL* wglGetPbufferDCARB)(HPBUFFERARB buffer) = nullptr;
    /// Gives back the device context of a buffer. @return 0 on failure. Null when it is missing.
    int(COMMONUI_WGL_CALL* wglReleasePbufferDCARB)(HPBUFFERARB buffer, HDC hdc) = nullptr;
    /// Destroys a buffer. @return 0 on failure. Null when it is missing.
    int(COMMONUI_WGL_CALL* wglDestroyPbufferARB)(HPBUFFERARB buffer) = nullptr;
    /// Reads an attribute of a buffer. @return 0 on failure. Null when it is missing.
    int(COMMONUI_WGL_CALL* wglQueryPbufferARB)(HPBUFFERARB buffer, int attribute, int* value) = nullptr;
};

} // namespace CommonUI
