#include "platform/GLEntryPoints.h"

#include <cstdint>

#if defined(_WIN32) && defined(COMMONUI_WITH_OPENGL)
#include <windows.h>
#endif

namespace CommonUI
{

namespace
{

class CSystemGLEntryPoints final : public CGLEntryPoints
{
public:
#if defined(_WIN32) && defined(COMMONUI_WITH_OPENGL)
    FProcedure GetProcedure(const char* name) override
    {
        const auto procedure = reinterpret_cast<FProcedure>(wglGetProcAddress(name));
        // Some drivers answer with small numbers or with -1 instead of null.
        const auto address = reinterpret_cast<std::intptr_t>(procedure);
        return address >= -1 && address <= 3 ? nullptr : procedure;
    }
#else
    FProcedure GetProcedure(const char*) override
    {
        return nullptr;
    }
#endif
};

} // namespace

constinit CCurrentService<CGLEntryPoints> CGLEntryPoints::s_current(GetSystemGLEntryPoints);

CGLEntryPoints::~CGLEntryPoints() = default;

CGLEntryPoints& GetSystemGLEntryPoints()
{
    // Never destroyed, so that destructors of static objects may still ask.
    static CGLEntryPoints& entryPoints = *new CSystemGLEntryPoints;
    return entryPoints;
}

CGLEntryPoints& GetGLEntryPoints()
{
    return CGLEntryPoints::s_current.Get();
}

} // namespace CommonUI
