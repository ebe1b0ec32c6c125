#include "workbench/GLService.h"

#include <QOpenGLContext>

namespace Workbench
{

CommonUI::CGLEntryPoints::FProcedure CGLService::GetProcedure(const char* name)
{
    const QOpenGLContext* const context = QOpenGLContext::currentContext();
    return context ? context->getProcAddress(name) : nullptr;
}

} // namespace Workbench
