#pragma once

#include "TimerSchedule.h"

namespace CommonUI
{

/// A timer service on the steady clock for programs without a message loop. Ticks are made only inside the
/// functions below, on the thread that calls them.
///
/// When the program is late, a timer ticks once for all the intervals it has missed, and is then due again at
/// the next whole interval since it was started.
class COMMONUI_API CConsoleTimerService : public CTimerService
{
public:
    /// An interval of 0 counts as 1 millisecond.
    TIdentifier Create(unsigned int interval, FProcedure procedure) override;
    bool Kill(TIdentifier identifier) override;
    std::uint64_t GetTime() const override;

    /// Makes the ticks that are due by now, at most one for each timer, and does not wait: for programs with
    /// a loop of their own.
    /// @return how many ticks were made
    std::size_t ProcessDue();
    /// When ProcessDue has work again, as a time of std::chrono::steady_clock; empty without timers.
    std::optional<CTimerSchedule::TTime> GetNextDue() const { return m_schedule.GetNextDue(); }
    /// Makes the ticks of the given time, and waits in between and until its end.
    void RunFor(unsigned int milliseconds);
    /// Makes ticks until no timer is left, and waits in between.
    void RunUntilIdle();

protected:
    /// The clock, which never goes back.
    virtual CTimerSchedule::TTime GetNow() const;
    /// Lets the thread sleep until the clock has reached a time.
    virtual void WaitUntil(CTimerSchedule::TTime time);

private:
    CTimerSchedule m_schedule;
};

/// The service that the process's timers use by default. It lives until the process ends.
COMMONUI_API CConsoleTimerService& GetConsoleTimerService();

} // namespace CommonUI
