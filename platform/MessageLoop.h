#pragma once

#include "ConsoleTimerService.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace CommonUI
{

/// What an application lends the library to bring work of other threads to the user-interface thread, and to
/// wait there without standing still.
class COMMONUI_API CMessageLoop
{
public:
    using CMessage = std::function<void()>;

    CMessageLoop() = default;
    virtual ~CMessageLoop();
    CMessageLoop(const CMessageLoop&) = delete;
    CMessageLoop& operator=(const CMessageLoop&) = delete;

    /// Has a function called on the user-interface thread, in the order of posting. Any thread may post.
    virtual void Post(CMessage message) = 0;
    /// Handles messages and timers until `done` returns true, which is asked after each. Called on the
    /// user-interface thread, also in a message. An exception of a message ends the loop and reaches the
    /// caller.
    virtual void RunUntil(const std::function<bool()>& done) = 0;
};

/// A message loop for programs without one: whoever runs it is the user-interface thread. Between messages it
/// makes the ticks of a console timer service.
class COMMONUI_API CConsoleMessageLoop : public CMessageLoop
{
public:
    /// @param timers it must outlive the loop
    explicit CConsoleMessageLoop(CConsoleTimerService& timers = GetConsoleTimerService());
    ~CConsoleMessageLoop() override;

    void Post(CMessage message) override;
    void RunUntil(const std::function<bool()>& done) override;
    /// How many messages wait.
    std::size_t GetCount() const;

private:
    CMessage Wait();

    CConsoleTimerService& m_timers;
    mutable std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<CMessage> m_messages;
};

/// The loop that the library uses: a CConsoleMessageLoop unless another one was set.
COMMONUI_API CMessageLoop& GetMessageLoop();

/// Sets the loop and returns the one before. It is not owned and must outlive its use; null stands for the
/// console loop. Set it on the user-interface thread while no other thread posts.
COMMONUI_API CMessageLoop* SetMessageLoop(CMessageLoop* loop);

} // namespace CommonUI
