#pragma once

#include "platform/memory/MemoryMessageLoop.h"
#include "tests/CountedTimers.h"

#include <gtest/gtest.h>

namespace CommonUI
{

/// Gives the process a loop of its own and a clock that tests advance.
class CDialogServices
{
public:
    CMemoryMessageLoop loop;
    CCountedTimers timers;

private:
    CServiceScope<CMessageLoop> m_loopScope{loop};
    CServiceScope<CTimerService> m_timersScope{timers};
};

class CDialogTest : public testing::Test, public CDialogServices
{
};

} // namespace CommonUI
