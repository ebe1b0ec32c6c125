#pragma once

#include "platform/GLEntryPoints.h"

namespace Workbench
{

/// Finds the functions of OpenGL through the context that is current on Qt.
class CGLService : public CommonUI::CGLEntryPoints
{
public:
    FProcedure GetProcedure(const char* name) override;
};

} // namespace Workbench
