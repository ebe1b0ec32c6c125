#pragma once

#include "../../export/Export.h"
#include "../../platform/ThreadService.h"

namespace CommonUI
{

/// Priorities of the system, which has -15, -2 to 2, and 15: others become the nearest of these.
class COMMONUIWIN_API CWinThreadService : public CThreadService
{
public:
    ~CWinThreadService() override;

    bool SetPriority(int priority) override;
};

} // namespace CommonUI
