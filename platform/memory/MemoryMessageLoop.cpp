#include "platform/memory/MemoryMessageLoop.h"

#include "platform/ConsoleTimerService.h"

#include <utility>

namespace CommonUI
{

CMemoryMessageLoop::CMemoryMessageLoop(CConsoleTimerService* timers)
    : m_timers(timers)
{
}

CMemoryMessageLoop::~CMemoryMessageLoop() = default;

void CMemoryMessageLoop::Post(FMessage message)
{
    const std::lock_guard lock(m_mutex);
    m_queue.push_back(std::move(message));
    // Under the lock: who waits may destroy the loop as soon as the message is handled.
    m_changed.notify_one();
}

bool CMemoryMessageLoop::RunUntil(const FCondition& isDone)
{
    while (!isDone()) {
        if (!WaitForWork())
            return false;
        HandleOne();
        MakeTicks();
    }
    return true;
}

std::size_t CMemoryMessageLoop::Pump()
{
    const std::size_t count = GetCount();
    std::size_t handled = 0;
    while (handled < count && HandleOne())
        ++handled;
    MakeTicks();
    return handled;
}

void CMemoryMessageLoop::Quit()
{
    const std::lock_guard lock(m_mutex);
    m_quit = true;
    m_changed.notify_all();
}

std::size_t CMemoryMessageLoop::GetCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_queue.size();
}

bool CMemoryMessageLoop::HandleOne()
{
    FMessage message;
    {
        const std::lock_guard lock(m_mutex);
        if (m_queue.empty())
            return false;
        message = std::move(m_queue.front());
        m_queue.pop_front();
    }
    message();
    return true;
}

// False when the program is to end.
bool CMemoryMessageLoop::WaitForWork()
{
    using CClock = std::chrono::steady_clock;
    const auto isReady = [this] { return m_quit || !m_queue.empty(); };
    const auto due = m_timers ? m_timers->GetNextDue() : std::nullopt;
    std::unique_lock lock(m_mutex);
    if (due)
        m_changed.wait_until(lock, CClock::time_point(std::chrono::duration_cast<CClock::duration>(*due)),
                             isReady);
    else
        m_changed.wait(lock, isReady);
    return !m_quit;
}

void CMemoryMessageLoop::MakeTicks()
{
    if (m_timers)
        m_timers->ProcessDue();
}

CMemoryMessageLoop& GetConsoleMessageLoop()
{
    // Never destroyed: a worker may still post when static objects are.
    static CMemoryMessageLoop& loop = *new CMemoryMessageLoop(&GetConsoleTimerService());
    return loop;
}

} // namespace CommonUI
