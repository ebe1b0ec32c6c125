#pragma once

#include "../MessageLoop.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace CommonUI
{

class CConsoleTimerService;

/// A message loop without a display: for programs on a console, and for tests.
class COMMONUI_API CMemoryMessageLoop : public CMessageLoop
{
public:
    /// @param timers the timers whose ticks the loop makes between messages and while it waits; not owned;
    ///     null where somebody else makes them
    explicit CMemoryMessageLoop(CConsoleTimerService* timers = nullptr);
    ~CMemoryMessageLoop() override;

    void Post(FMessage message) override;
    bool RunUntil(const FCondition& isDone) override;
    std::size_t Pump() override;

    /// Ends all loops that run, and every later one at once: the program is to end. Any thread may call.
    void Quit();
    /// How many messages wait. Any thread may call.
    std::size_t GetCount() const;

private:
    bool HandleOne();
    bool WaitForWork();
    void MakeTicks();

    CConsoleTimerService* m_timers;
    mutable std::mutex m_mutex; // of what follows
    std::condition_variable m_changed;
    std::deque<FMessage> m_queue;
    bool m_quit = false;
};

/// The loop that the process uses by default, with the timers of GetConsoleTimerService(). It lives until the
/// process ends.
COMMONUI_API CMemoryMessageLoop& GetConsoleMessageLoop();

} // namespace CommonUI
