#include "dialogs/CancelQueue.h"

#include <map>
#include <mutex>

namespace CommonUI
{

namespace
{

struct SQueues {
    std::mutex mutex;
    CCancelQueue::TIdentifier last = 0;
    std::map<CCancelQueue::TIdentifier, std::atomic<bool>*> queues;
};

/// Never destroyed: threads may end after the static objects.
SQueues& Queues()
{
    static auto& queues = *new SQueues;
    return queues;
}

} // namespace

CCancelQueue::CCancelQueue()
{
    const std::lock_guard lock(Queues().mutex);
    m_identifier = ++Queues().last;
    Queues().queues.emplace(m_identifier, &m_posted);
}

CCancelQueue::~CCancelQueue()
{
    const std::lock_guard lock(Queues().mutex);
    Queues().queues.erase(m_identifier);
}

bool CCancelQueue::Post(TIdentifier identifier)
{
    const std::lock_guard lock(Queues().mutex);
    const auto found = Queues().queues.find(identifier);
    if (found == Queues().queues.end())
        return false;
    *found->second = true;
    return true;
}

} // namespace CommonUI
