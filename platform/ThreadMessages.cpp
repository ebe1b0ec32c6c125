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

#ifdef _WIN32
#include <new>
#include <windows.h>
#endif

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

#ifdef _WIN32

// The queue of the calling thread. It is in the system's storage, which calls back when a thread ends:
// runtimes there free the memory of a `thread_local` object before they destroy it.
class CQueueOfThread
{
public:
    static CThreadQueue* Get()
    {
        const auto* const queue = static_cast<std::shared_ptr<CThreadQueue>*>(::FlsGetValue(Index()));
        return queue ? queue->get() : nullptr;
    }
    static void Set(std::shared_ptr<CThreadQueue> queue)
    {
        auto owned = std::make_unique<std::shared_ptr<CThreadQueue>>(std::move(queue));
        Destroy(::FlsGetValue(Index()));
        if (!::FlsSetValue(Index(), owned.get()))
            throw std::bad_alloc();
        owned.release();
    }

private:
    // The first thread's queue and the index stay until the process ends.
    static DWORD Index()
    {
        static const DWORD index = ::FlsAlloc(Destroy);
        return index;
    }
    static void WINAPI Destroy(void* queue) { delete static_cast<std::shared_ptr<CThreadQueue>*>(queue); }
};

#else

// The queue of the calling thread.
class CQueueOfThread
{
public:
    static CThreadQueue* Get() { return s_queue.get(); }
    static void Set(std::shared_ptr<CThreadQueue> queue) { s_queue = std::move(queue); }

private:
    static thread_local std::shared_ptr<CThreadQueue> s_queue;
};

thread_local std::shared_ptr<CThreadQueue> CQueueOfThread::s_queue;

#endif

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
    CQueueOfThread::Set(std::move(queue));
}

unsigned long GetThreadIdentifier()
{
    if (!CQueueOfThread::Get())
        CQueueOfThread::Set(CreateThreadQueue());
    return CQueueOfThread::Get()->GetIdentifier();
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
    CThreadQueue* const queue = CQueueOfThread::Get();
    if (!queue || !queue->Take(message))
        return false;
    Trace(u"%s is taken by thread %lu", message, queue->GetIdentifier());
    return true;
}

} // namespace CommonUI
