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
    ~CDialogTest() override
    {
        SetTimerService(m_timersBefore);
        SetMessageLoop(m_loopBefore);
    }

    CMemoryMessageLoop loop;
    CManualTimerService timers;

private:
    CMessageLoop* m_loopBefore = SetMessageLoop(&loop);
    CTimerService* m_timersBefore = SetTimerService(&timers);
};

} // namespace CommonUI
