#include "platform/MessageLoop.h"

#include <utility>

namespace CommonUI
{

namespace
{

CMessageLoop* s_loop = nullptr;

} // namespace

CMessageLoop::~CMessageLoop() = default;

CConsoleMessageLoop::CConsoleMessageLoop(CConsoleTimerService& timers)
    : m_timers(timers)
{
}

CConsoleMessageLoop::~CConsoleMessageLoop() = default;

void CConsoleMessageLoop::Post(CMessage message)
{
    // Under the lock, so that the loop is not destroyed between the message and the signal.
    const std::lock_guard lock(m_mutex);
    m_messages.push_back(std::move(message));
    m_posted.notify_one();
}

void CConsoleMessageLoop::RunUntil(const std::function<bool()>& done)
{
    while (!done()) {
        if (const CMessage message = Wait())
            message();
        else
            m_timers.ProcessDue();
    }
}

/// The next message; empty when a timer is due before.
CMessageLoop::CMessage CConsoleMessageLoop::Wait()
{
    const auto due = m_timers.GetNextDue();
    const auto ready = [this] { return !m_messages.empty(); };
    std::unique_lock lock(m_mutex);
    if (!due)
        m_posted.wait(lock, ready);
    else if (!m_posted.wait_until(lock, std::chrono::steady_clock::time_point(*due), ready))
        return {};
    CMessage message = std::move(m_messages.front());
    m_messages.pop_front();
    return message;
}

std::size_t CConsoleMessageLoop::GetCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_messages.size();
}

CMessageLoop& GetMessageLoop()
{
    // Never destroyed: threads may post as long as they live.
    static CConsoleMessageLoop& console = *new CConsoleMessageLoop;
    return s_loop ? *s_loop : console;
}

CMessageLoop* SetMessageLoop(CMessageLoop* loop)
{
    return std::exchange(s_loop, loop);
}

} // namespace CommonUI
