#include "platform/ConsoleTimerService.h"

#include <thread>

namespace CommonUI
{

CTimerService::TIdentifier CConsoleTimerService::Create(unsigned int interval, FProcedure procedure)
{
    return m_schedule.Create(GetNow(), interval, procedure);
}

bool CConsoleTimerService::Kill(TIdentifier identifier)
{
    return m_schedule.Kill(identifier);
}

std::uint64_t CConsoleTimerService::GetTime() const
{
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(GetNow()).count());
}

std::size_t CConsoleTimerService::ProcessDue()
{
    const auto now = GetNow();
    std::size_t count = 0;
    while (m_schedule.Deliver(now))
        ++count;
    return count;
}

void CConsoleTimerService::RunFor(unsigned int milliseconds)
{
    const auto end = GetNow() + std::chrono::milliseconds(milliseconds);
    for (auto due = GetNextDue(); due && *due <= end; due = GetNextDue()) {
        WaitUntil(*due);
        ProcessDue();
    }
    WaitUntil(end);
}

void CConsoleTimerService::RunUntilIdle()
{
    for (auto due = GetNextDue(); due; due = GetNextDue()) {
        WaitUntil(*due);
        ProcessDue();
    }
}

CTimerSchedule::TTime CConsoleTimerService::GetNow() const
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

void CConsoleTimerService::WaitUntil(CTimerSchedule::TTime time)
{
    std::this_thread::sleep_for(time - GetNow());
}

CConsoleTimerService& GetConsoleTimerService()
{
    // Never destroyed: destructors of static objects may still stop timers.
    static CConsoleTimerService& service = *new CConsoleTimerService;
    return service;
}

} // namespace CommonUI
