#include "workbench/GLService.h"

#include <QOpenGLContext>

#include <string_view>

namespace Workbench
{

CommonUI::CGLEntryPoints::FProcedure CGLService::GetProcedure(const char* name)
{
#ifndef Q_OS_WIN
    // GLX has an address for any name, also of what only Windows has.
    if (std::string_view(name).starts_with("wgl"))
        return nullptr;
#endif
    const QOpenGLContext* const context = QOpenGLContext::currentContext();
    return context ? context->getProcAddress(name) : nullptr;
}

} // namespace Workbench
