#include "platform/ThreadMessages.h"

#include "common/Diagnostics.h"
#include "platform/detail/ThreadQueue.h"
#include "platform/MessageNames.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace CommonUI
{

class CThreadQueue
{
public:
    explicit CThreadQueue(unsigned long identifier)
        : m_identifier(identifier)
    {
    }
    ~CThreadQueue();
    CThreadQueue(const CThreadQueue&) = delete;
    CThreadQueue& operator=(const CThreadQueue&) = delete;

    unsigned long GetIdentifier() const { return m_identifier; }
    void Add(unsigned int message)
    {
        const std::lock_guard lock(m_mutex);
        m_messages.push_back(message);
        m_hasMessages = true;
    }
    bool Take(unsigned int message)
    {
        // Workers look all the time and hardly ever find something: no lock for that.
        if (!m_hasMessages)
            return false;
        const std::lock_guard lock(m_mutex);
        const auto found = std::find(m_messages.begin(), m_messages.end(), message);
        if (found == m_messages.end())
            return false;
        m_messages.erase(found);
        m_hasMessages = !m_messages.empty();
        return true;
    }

private:
    const unsigned long m_identifier;
    std::atomic<bool> m_hasMessages = false;
    std::mutex m_mutex;
    std::vector<unsigned int> m_messages;
};

namespace
{

// The queues of all threads that can be posted to.
class CThreadQueues
{
public:
    std::shared_ptr<CThreadQueue> Create()
    {
        const std::lock_guard lock(m_mutex);
        auto queue = std::make_shared<CThreadQueue>(++m_last);
        m_queues.emplace(m_last, queue);
        return queue;
    }
    std::shared_ptr<CThreadQueue> Find(unsigned long identifier) const
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_queues.find(identifier);
        return found == m_queues.end() ? nullptr : found->second.lock();
    }
    void Remove(unsigned long identifier)
    {
        const std::lock_guard lock(m_mutex);
        m_queues.erase(identifier);
    }

private:
    mutable std::mutex m_mutex;
    unsigned long m_last = 0;
    std::map<unsigned long, std::weak_ptr<CThreadQueue>> m_queues;
};

CThreadQueues& ThreadQueues()
{
    // Never destroyed: threads may end after static objects are gone.
    static CThreadQueues& queues = *new CThreadQueues;
    return queues;
}

thread_local std::shared_ptr<CThreadQueue> s_queue;

void Trace(const char16_t* format, unsigned int message, unsigned long thread)
{
    if (CDiagnostics::IsAnyEnabled() && GetDiagnostics().IsEnabled(c_messageCategory))
        GetDiagnostics().Write(c_messageCategory, EDiagnosticLevel::Trace,
                               CStr::Format(format, GetMessageName(message), thread));
}

} // namespace

CThreadQueue::~CThreadQueue()
{
    ThreadQueues().Remove(m_identifier);
}

std::shared_ptr<CThreadQueue> CreateThreadQueue()
{
    return ThreadQueues().Create();
}

unsigned long GetThreadIdentifier(const CThreadQueue& queue)
{
    return queue.GetIdentifier();
}

void AdoptThreadQueue(std::shared_ptr<CThreadQueue> queue)
{
    s_queue = std::move(queue);
}

unsigned long GetThreadIdentifier()
{
    if (!s_queue)
        s_queue = CreateThreadQueue();
    return s_queue->GetIdentifier();
}

bool PostToThread(unsigned long thread, unsigned int message)
{
    const auto queue = ThreadQueues().Find(thread);
    Trace(queue ? u"%s is posted to thread %lu" : u"%s finds no thread %lu", message, thread);
    if (queue)
        queue->Add(message);
    return queue != nullptr;
}

bool TakeThreadMessage(unsigned int message)
{
    if (!s_queue || !s_queue->Take(message))
        return false;
    Trace(u"%s is taken by thread %lu", message, s_queue->GetIdentifier());
    return true;
}

} // namespace CommonUI
