#pragma once

#include "../platform/TimerService.h"
#include "Closure.h"

namespace CommonUI
{

/// An object with an interval and one callback that is called on every tick while it runs. Timers live on the
/// user-interface thread, as a rule as members of the control they serve.
class COMMONUI_API CBaseTimer
{
public:
    virtual ~CBaseTimer();
    CBaseTimer(const CBaseTimer&) = delete;
    CBaseTimer& operator=(const CBaseTimer&) = delete;

    /// Whether ticks come; false at first.
    virtual bool IsRunning() const { return m_running; }
    /// Starts or stops the timer; nothing changes when it is in that state already.
    /// @return whether that was possible
    virtual bool SetRunning(bool running) = 0;
    /// In milliseconds.
    virtual unsigned int GetInterval() const { return m_interval; }
    /// A running timer starts anew, so that its next tick comes one new interval from now; one that cannot be
    /// started anew is stopped then. A stopped timer stays stopped.
    virtual void SetInterval(unsigned int milliseconds);
    /// Sets the interval to that of a frequency in hertz, truncated to whole milliseconds: 333 for 3 Hz, 0
    /// above 1000 Hz. An interval that is too long for its type becomes the longest possible. Zero, negative
    /// frequencies and NaN leave the timer as it is, with a warning in the diagnostics.
    virtual void SetFrequency(double hertz);

    /// Sets the member function that ticks call, in place of the one before. The object is not owned; it must
    /// live as long as the timer runs. A tick may call anything of its timer and also destroy it.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(CBaseTimer&))
    {
        m_slot.Set(MakeClosure(object, method));
    }

protected:
    /// A stopped timer without callback.
    explicit CBaseTimer(unsigned int milliseconds);
    /// Only for timers whose SetRunning has succeeded: changes what IsRunning returns, and nothing else.
    void StoreRunning(bool running) noexcept { m_running = running; }
    /// Calls the callback, if there is one. The timer may be gone afterwards.
    void Tick();

private:
    unsigned int m_interval;
    bool m_running = false;
    CCallbackSlot m_slot;
};

/// A timer that the timer service of the process drives.
class COMMONUI_API CWinTimer : public CBaseTimer
{
public:
    /// A stopped timer without callback.
    explicit CWinTimer(unsigned int milliseconds);
    /// Stops the timer.
    ~CWinTimer() override;

    /// @return when starting: false if the service cannot create a timer, and then this one stays stopped;
    ///     when stopping: whether the service knew the timer, which is stopped in either case
    bool SetRunning(bool running) override;

private:
    static void Dispatch(CTimerService::TIdentifier identifier);
    bool Start();
    bool Stop();

    CTimerService::TIdentifier m_identifier = 0; // 0 when stopped
};

} // namespace CommonUI
