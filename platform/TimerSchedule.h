#pragma once

#include "TimerService.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <optional>
#include <utility>

namespace CommonUI
{

/// The timers of a service that keeps the time itself, in the order in which they are due: by time, and those
/// due at the same time by age.
class COMMONUI_API CTimerSchedule
{
public:
    /// Time since whenever the service's clock began.
    using TTime = std::chrono::nanoseconds;
    /// The number of a timer; never 0.
    using TIdentifier = CTimerService::TIdentifier;

    /// @param interval in milliseconds; 0 counts as 1
    /// @return never 0, and never that of an earlier timer until the numbers run out
    TIdentifier Create(TTime now, unsigned int interval, CTimerService::FProcedure procedure);
    /// Ends a timer. @return false for one that is not there
    bool Kill(TIdentifier identifier);

    /// When the next tick is due; empty without timers.
    std::optional<TTime> GetNextDue() const;
    /// Makes the first tick that is due by now, if there is one. The timer is due again at the first whole
    /// interval after now, so that ticks missed in between are made up for by this one.
    /// @return whether a tick was made
    bool Deliver(TTime now);

private:
    struct STimer {
        TTime interval;
        CTimerService::FProcedure procedure;
    };

    TIdentifier m_lastIdentifier = 0;
    std::map<std::pair<TTime, TIdentifier>, STimer> m_queue;
    std::map<TIdentifier, TTime> m_due;
};

} // namespace CommonUI
