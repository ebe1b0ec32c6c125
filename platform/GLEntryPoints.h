#pragma once

#include "../export/Export.h"
#include "Service.h"

namespace CommonUI
{

/// What the window system lends the library for OpenGL: the functions beyond those that every driver has.
///
/// All functions are called on the thread that owns the current rendering context.
class COMMONUI_API CGLEntryPoints
{
public:
    /// A function of any type, which the caller knows by the name.
    using FProcedure = void (*)();

    CGLEntryPoints() = default;
    virtual ~CGLEntryPoints();
    CGLEntryPoints(const CGLEntryPoints&) = delete;
    CGLEntryPoints& operator=(const CGLEntryPoints&) = delete;

    /// @param name such as "wglGetExtensionsStringARB"
    /// @return null when the driver of the current context does not offer the function
    virtual FProcedure GetProcedure(const char* name) = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CGLEntryPoints> s_current;
};

/// The window system's own: those of WGL on Windows, none elsewhere. It lives until the process ends.
COMMONUI_API CGLEntryPoints& GetSystemGLEntryPoints();

/// The entry points that the library uses: GetSystemGLEntryPoints() unless others were set.
COMMONUI_API CGLEntryPoints& GetGLEntryPoints();

} // namespace CommonUI
