#pragma once

#include "../export/Export.h"
#include "Service.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

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

/// Entry points from a table, for machines without the window system and for tests.
class COMMONUI_API CTableGLEntryPoints : public CGLEntryPoints
{
public:
    FProcedure GetProcedure(const char* name) override;

    /// Offers a function under a name, in place of one that had it before. Its type must be the one that goes
    /// with the name.
    template<class TResult, class... TArgs>
    void Set(std::string_view name, TResult (*function)(TArgs...))
    {
        m_procedures.insert_or_assign(std::string(name), reinterpret_cast<FProcedure>(function));
    }
    void Remove(std::string_view name);

private:
    std::map<std::string, FProcedure, std::less<>> m_procedures;
};

/// The window system's own: those of WGL on Windows, none elsewhere. It lives until the process ends.
COMMONUI_API CGLEntryPoints& GetSystemGLEntryPoints();

/// The entry points that the library uses: GetSystemGLEntryPoints() unless others were set.
COMMONUI_API CGLEntryPoints& GetGLEntryPoints();

} // namespace CommonUI
