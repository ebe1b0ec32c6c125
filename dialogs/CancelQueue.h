#pragma once

#include "../platform/Export.h"

#include <atomic>

namespace CommonUI
{

/// Where a thread that works looks whether somebody wants it to stop. The thread owns the queue; others know
/// it by its number, which means nothing any more when the queue is gone. Every function may be called by any
/// thread.
class COMMONUI_API CCancelQueue
{
public:
    /// Names a queue; 0 names none.
    using TIdentifier = unsigned long;

    CCancelQueue();
    ~CCancelQueue();
    CCancelQueue(const CCancelQueue&) = delete;
    CCancelQueue& operator=(const CCancelQueue&) = delete;

    TIdentifier GetIdentifier() const noexcept { return m_identifier; }
    /// Whether a request to stop has come since the last call. Does not wait, not even for a lock.
    bool Take() noexcept { return m_posted.exchange(false); }

    /// Asks the owner of a queue to stop. @return false if there is no queue of this number
    static bool Post(TIdentifier identifier);

private:
    TIdentifier m_identifier;
    std::atomic<bool> m_posted = false;
};

} // namespace CommonUI
