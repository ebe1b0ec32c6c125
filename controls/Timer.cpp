#include "controls/Timer.h"

#include "common/Diagnostics.h"

#include <limits>
#include <map>

namespace CommonUI
{

namespace
{

// The running timers. Never destroyed: destructors of static objects may still stop timers.
std::map<CTimerService::TIdentifier, CWinTimer*>& RunningTimers()
{
    static auto& timers = *new std::map<CTimerService::TIdentifier, CWinTimer*>;
    return timers;
}

} // namespace

CBaseTimer::CBaseTimer(unsigned int milliseconds)
    : m_interval(milliseconds)
{
}

CBaseTimer::~CBaseTimer() = default;

void CBaseTimer::SetInterval(unsigned int milliseconds)
{
    m_interval = milliseconds;
    if (IsRunning()) {
        SetRunning(false);
        SetRunning(true);
    }
}

void CBaseTimer::SetFrequency(double hertz)
{
    if (!(hertz > 0)) {
        GetDiagnostics().Write(u"Timer", EDiagnosticLevel::Warning,
                               CStr::Format(u"no interval for a frequency of %g Hz", hertz));
        return;
    }
    constexpr unsigned int c_longest = std::numeric_limits<unsigned int>::max();
    const double milliseconds = 1000.0 / hertz;
    SetInterval(milliseconds < c_longest ? static_cast<unsigned int>(milliseconds) : c_longest);
}

void CBaseTimer::Tick()
{
    // Keeps the closure until it returns, even if it sets another one or destroys the timer.
    if (const auto closure = m_slot.Share<void, CBaseTimer&>())
        closure->Invoke(*this);
}

CWinTimer::CWinTimer(unsigned int milliseconds)
    : CBaseTimer(milliseconds)
{
}

CWinTimer::~CWinTimer()
{
    if (m_identifier != 0)
        Stop();
}

bool CWinTimer::SetRunning(bool running)
{
    if (running == IsRunning())
        return true;
    return running ? Start() : Stop();
}

bool CWinTimer::Start()
{
    const auto identifier = GetTimerService().Create(GetInterval(), Dispatch);
    if (identifier == 0)
        return false;
    // An identifier that is taken is that of a running timer, and must not be killed.
    if (!RunningTimers().emplace(identifier, this).second)
        return false;
    m_identifier = identifier;
    StoreRunning(true);
    return true;
}

bool CWinTimer::Stop()
{
    const auto identifier = std::exchange(m_identifier, 0);
    RunningTimers().erase(identifier);
    StoreRunning(false);
    return GetTimerService().Kill(identifier);
}

void CWinTimer::Dispatch(CTimerService::TIdentifier identifier)
{
    const auto found = RunningTimers().find(identifier);
    if (found != RunningTimers().end())
        found->second->Tick();
    else
        GetTimerService().Kill(identifier);
}

} // namespace CommonUI
