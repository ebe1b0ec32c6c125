#pragma once

#include "../export/Export.h"
#include "Service.h"

#include <cstddef>
#include <functional>

namespace CommonUI
{

/// What an application lends the library for the messages of its user-interface thread: a queue that any
/// thread may write, and the loop that handles messages, input and the ticks of timers.
///
/// All functions but Post are called on the user-interface thread. An exception of a message reaches whoever
/// runs the loop; the messages behind it stay in the queue.
class COMMONUI_API CMessageLoop
{
public:
    /// Work to be done on the user-interface thread.
    using FMessage = std::function<void()>;
    /// Whether what is waited for has come.
    using FCondition = std::function<bool()>;

    CMessageLoop() = default;
    virtual ~CMessageLoop();
    CMessageLoop(const CMessageLoop&) = delete;
    CMessageLoop& operator=(const CMessageLoop&) = delete;

    /// Puts a message behind those that wait, and returns at once. Any thread may call. Messages are handled
    /// on the user-interface thread, those of one thread in the order in which it posted them. What a message
    /// posts is handled after the input and the ticks that wait by then: long work cut into messages keeps
    /// nobody waiting.
    virtual void Post(FMessage message) = 0;
    /// Handles messages, and waits for them, until the condition is true. The condition is asked on this
    /// thread, before the first message and after each one. Loops may be nested.
    /// @return false if the loop ended because the program is to end; the condition need not be true then
    virtual bool RunUntil(const FCondition& isDone) = 0;
    /// Handles what waits by now, without waiting itself: for long work on the user-interface thread.
    /// @return how many messages were handled
    virtual std::size_t Pump() = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CMessageLoop> s_current;
};

/// The loop of the process: GetConsoleMessageLoop() unless another one was set.
COMMONUI_API CMessageLoop& GetMessageLoop();

} // namespace CommonUI
