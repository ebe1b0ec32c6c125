#pragma once

#include "../export/Export.h"
#include "Service.h"

#include <functional>
#include <memory>
#include <thread>

namespace CommonUI
{

class CThreadQueue;

/// What an application lends the library for its threads beyond what the C++ library offers.
class COMMONUI_API CThreadService
{
public:
    CThreadService() = default;
    virtual ~CThreadService();
    CThreadService(const CThreadService&) = delete;
    CThreadService& operator=(const CThreadService&) = delete;

    /// Asks the operating system to run the calling thread at a priority, from -15 (when there is nothing
    /// else to do) over 0 (as usual) to 15 (time-critical). Called on each new worker thread before its work.
    /// The default does nothing, since C++ knows no priorities.
    /// @return whether the system agreed; the work is done in either case
    virtual bool SetPriority(int priority);

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CThreadService> s_current;
};

/// The service of the process: one that has the defaults unless another one was set.
COMMONUI_API CThreadService& GetThreadService();

/// A thread that runs one function and has a queue for messages from the start.
class COMMONUI_API CWorkerThread
{
public:
    static constexpr int c_timeCritical = 15;
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
