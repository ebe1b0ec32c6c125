#pragma once

#include "platform/ManualTimerService.h"
#include "platform/MemoryMessageLoop.h"

#include <gtest/gtest.h>

namespace CommonUI
{

/// Gives the process a loop of its own and a clock that tests advance.
class CDialogTest : public testing::Test
{
public:
    CMemoryMessageLoop loop;
    CManualTimerService timers;

private:
    CServiceScope<CMessageLoop> m_loopScope{loop};
    CServiceScope<CTimerService> m_timersScope{timers};
};

} // namespace CommonUI
