#pragma once

#include "platform/MessageLoop.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>

namespace CommonUI
{

/// What a worker has for its progress dialog: steps, the news of a text, and its end. Any thread puts in. The
/// user-interface thread takes out when it is woken, by one message in the loop for everything that is there.
class CProgressInbox : public std::enable_shared_from_this<CProgressInbox>
{
public:
    using FWake = std::function<void()>;

    /// @param wake called on the user-interface thread after something was put in, unless the inbox is closed
    ///     by then
    explicit CProgressInbox(FWake wake);

    /// @param hasText whether the text of the report shall be shown, after its step
    void PutReport(bool hasText);
    /// The work is done; nothing follows.
    /// @param exception what the work threw, or null
    void PutEnd(std::exception_ptr exception);

    /// Whether the work is done. Any thread may ask; what was put in before is there then.
    bool IsDone() const { return m_isDone; }
    bool HasSteps() const { return m_steps != 0; }
    /// Takes one step. What is left will wake, also a loop that runs before this call's caller is done.
    /// @return false if there is none, or the inbox is closed
    bool TakeStep();
    /// Takes the news of a text. @return false if there is none, or the inbox is closed
    bool TakeText();
    /// What the work threw, once. For who has waited for the worker.
    std::exception_ptr TakeException();
    /// From now on nobody is woken, and there is nothing to take.
    void Close() { m_isClosed = true; }
    bool IsClosed() const { return m_isClosed; }

private:
    void Wake();

    CMessageLoop& m_loop = GetMessageLoop();
    const FWake m_wake;
    std::atomic<std::uint64_t> m_steps = 0;
    std::atomic<bool> m_hasText = false;
    std::atomic<bool> m_isDone = false;
    std::atomic<bool> m_isWaking = false; // a message waits in the loop
    bool m_isClosed = false;              // for the user-interface thread only
    std::exception_ptr m_exception;       // complete when the work is done
};

} // namespace CommonUI
