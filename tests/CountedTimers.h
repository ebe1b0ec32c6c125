#pragma once

#include "platform/ManualTimerService.h"

namespace CommonUI
{

/// A manual service that tells how many timers have been created and not killed.
class CCountedTimers : public CManualTimerService
{
public:
    TIdentifier Create(unsigned int interval, FProcedure procedure) override
    {
        ++m_count;
        return CManualTimerService::Create(interval, procedure);
    }
    bool Kill(TIdentifier identifier) override
    {
        const bool killed = CManualTimerService::Kill(identifier);
        m_count -= killed ? 1 : 0;
        return killed;
    }
    int GetTimerCount() const noexcept { return m_count; }

private:
    int m_count = 0;
};

} // namespace CommonUI
