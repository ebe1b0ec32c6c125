#include "platform/TimerSchedule.h"

#include <algorithm>

namespace CommonUI
{

CTimerSchedule::TIdentifier CTimerSchedule::Create(TTime now, unsigned int interval,
                                                   CTimerService::FProcedure procedure)
{
    do
        ++m_lastIdentifier;
    while (m_lastIdentifier == 0 || m_due.contains(m_lastIdentifier));

    const STimer timer{std::chrono::milliseconds(std::max(interval, 1U)), procedure};
    const TTime due = now + timer.interval;
    m_queue.emplace(std::pair(due, m_lastIdentifier), timer);
    m_due.emplace(m_lastIdentifier, due);
    return m_lastIdentifier;
}

bool CTimerSchedule::Kill(TIdentifier identifier)
{
    const auto found = m_due.find(identifier);
    if (found == m_due.end())
        return false;
    m_queue.erase(std::pair(found->second, identifier));
    m_due.erase(found);
    return true;
}

std::optional<CTimerSchedule::TTime> CTimerSchedule::GetNextDue() const
{
    if (m_queue.empty())
        return std::nullopt;
    return m_queue.begin()->first.first;
}

bool CTimerSchedule::Deliver(TTime now)
{
    if (m_queue.empty() || m_queue.begin()->first.first > now)
        return false;
    auto first = m_queue.extract(m_queue.begin());
    auto& [due, identifier] = first.key();
    const STimer timer = first.mapped();
    due += ((now - due) / timer.interval + 1) * timer.interval;
    m_due[identifier] = due;
    const TIdentifier ticking = identifier;
    m_queue.insert(std::move(first));

    // Last, as it may change the schedule or throw.
    timer.procedure(ticking);
    return true;
}

} // namespace CommonUI
