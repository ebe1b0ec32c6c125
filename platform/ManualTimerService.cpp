#include "platform/ManualTimerService.h"

#include <algorithm>

namespace CommonUI
{

CTimerService::TIdentifier CManualTimerService::Create(unsigned int interval, FProcedure procedure)
{
    return m_schedule.Create(m_now, interval, procedure);
}

bool CManualTimerService::Kill(TIdentifier identifier)
{
    return m_schedule.Kill(identifier);
}

void CManualTimerService::Advance(unsigned int milliseconds)
{
    const auto end = m_now + std::chrono::milliseconds(milliseconds);
    for (auto due = m_schedule.GetNextDue(); due && *due <= end; due = m_schedule.GetNextDue()) {
        m_now = *due;
        m_schedule.Deliver(m_now);
    }
    m_now = std::max(m_now, end);
}

std::uint64_t CManualTimerService::GetTime() const
{
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(m_now).count());
}

} // namespace CommonUI
