#include "controls/folders/detail/DriveThreads.h"

#include "analysis/numeric/DetachedThread.h"

#include <system_error>
#include <utility>

namespace CommonUI
{

void CDriveThreads::Push(FTask task)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
    const auto idle = static_cast<std::size_t>(m_threads - m_working);
    if (m_threads >= m_limit || m_tasks.size() <= idle)
        return;
    try {
        // Nobody can wait for a thread that hangs. It shares what it uses.
        Analysis::StartDetachedThread([self = shared_from_this()] { self->Run(); });
        ++m_threads;
    } catch (const std::system_error&) {
        if (m_threads > 0)
            return; // another one comes to it
        m_tasks.pop_back();
        throw;
    }
}

void CDriveThreads::Run()
{
    std::unique_lock lock(m_mutex);
    while (!m_tasks.empty()) {
        FTask task = std::move(m_tasks.front());
        m_tasks.pop_front();
        ++m_working;
        lock.unlock();
        task();
        task = {}; // what it holds may lock, too
        lock.lock();
        --m_working;
    }
    --m_threads;
}

} // namespace CommonUI
