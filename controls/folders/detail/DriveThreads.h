#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace CommonUI
{

/// The threads that work for one drive. They end when there is nothing to do; one that hangs in its drive is
/// left to itself.
class CDriveThreads : public std::enable_shared_from_this<CDriveThreads>
{
public:
    using FTask = std::function<void()>; // must not throw

    /// @param limit how many threads there are at most
    explicit CDriveThreads(int limit) noexcept
        : m_limit(limit)
    {
    }

    /// Has a thread do something, after what was pushed before. Throws std::system_error if there is none and
    /// the system has none left.
    void Push(FTask task);

private:
    void Run();

    std::mutex m_mutex; // of what follows
    std::deque<FTask> m_tasks;
    int m_threads = 0;
    int m_working = 0; // threads that are in a task
    int m_limit;
};

} // namespace CommonUI
