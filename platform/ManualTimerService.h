#pragma once

#include "TimerSchedule.h"

namespace CommonUI
{

/// A timer service on a clock that stands still until it is advanced: for tests, and for programs that play
/// time back.
class COMMONUI_API CManualTimerService : public CTimerService
{
public:
    /// An interval of 0 counts as 1 millisecond.
    TIdentifier Create(unsigned int interval, FProcedure procedure) override;
    bool Kill(TIdentifier identifier) override;

    /// Moves the clock on and makes all ticks on the way, each at its time, those of the same time in the
    /// order in which their timers were created. Timers created on the way tick as well.
    ///
    /// A tick may advance the clock itself, as a handler that takes long or runs a loop: the ticks of that
    /// time come inside it. When a tick throws, the clock stays at its time and the other ticks come with
    /// the next call.
    void Advance(unsigned int milliseconds);

    /// Milliseconds since the service was made.
    std::uint64_t GetTime() const override;

private:
    CTimerSchedule m_schedule;
    CTimerSchedule::TTime m_now{0};
};

} // namespace CommonUI
