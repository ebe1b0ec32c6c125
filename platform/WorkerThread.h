#pragma once

#include "../export/Export.h"

#include <functional>
#include <memory>
#include <thread>

namespace CommonUI
{

class CThreadQueue;

/// A thread that runs one function and has a queue for messages from the start.
class COMMONUI_API CWorkerThread
{
public:
    /// The priority of work that must not be kept waiting by anything else.
    COMMONUI_CONSTANT int c_timeCritical = 15;
    /// Runs on the thread and must not throw. What it returns is the thread's exit code.
    using FEntry = std::function<unsigned long()>;

    /// A thread that is yet to start, to which messages can be posted already.
    /// @param priority see CThreadService::SetPriority
    CWorkerThread(FEntry entry, int priority);
    /// Waits for the thread.
    ~CWorkerThread();
    CWorkerThread(const CWorkerThread&) = delete;
    CWorkerThread& operator=(const CWorkerThread&) = delete;

    /// For PostToThread.
    unsigned long GetIdentifier() const noexcept { return m_identifier; }
    /// Starts the thread, once. Throws std::system_error if the system has none left.
    void Start();
    /// Waits for the end of the function. @return its exit code
    unsigned long Wait();

private:
    FEntry m_entry;
    int m_priority;
    std::shared_ptr<CThreadQueue> m_queue; // until the thread has it
    unsigned long m_identifier;
    unsigned long m_exitCode = 0;
    std::thread m_thread;
};

} // namespace CommonUI
