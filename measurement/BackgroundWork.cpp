#include "measurement/BackgroundWork.h"

#include "analysis/numeric/DetachedThread.h"
#include "platform/MessageLoop.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

// The threads that have not ended. It stays until the end of the process.
struct SThreads {
    std::mutex mutex{};
    std::condition_variable changed{};
    int count = 0;

    static SThreads& Get()
    {
        static auto& threads = *new SThreads;
        return threads;
    }
    void Add(int number)
    {
        const std::lock_guard lock(mutex);
        count += number;
        changed.notify_all();
    }
};

struct SRequested {
    unsigned number = 0;
    CBackgroundWork::FWork work{};
};

} // namespace

// What the owner and its thread have, as long as one of them lives.
struct CBackgroundWork::SShared {
    std::mutex mutex{};
    std::condition_variable changed{};
    std::optional<SRequested> waiting{};
    unsigned last = 0; // request
    bool isEnding = false;
    bool hasThread = false;
    bool isBusy = false;  // used by the owner alone
    CMessageLoop* loop{}; // outlives the owner, not the thread

    bool IsWanted(unsigned number)
    {
        const std::lock_guard lock(mutex);
        return !isEnding && number == last;
    }

    std::optional<SRequested> WaitForRequest()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return isEnding || waiting; });
        return isEnding ? std::nullopt : std::exchange(waiting, std::nullopt);
    }

    // The message holds what it needs of both, so that the owner may have gone by then.
    static void Post(const std::shared_ptr<SShared>& shared, unsigned number, FShow show)
    {
        const std::lock_guard lock(shared->mutex);
        if (shared->isEnding)
            return;
        shared->loop->Post([shared, number, show = std::move(show)] {
            if (!shared->IsWanted(number))
                return;
            shared->isBusy = false;
            if (show)
                show();
        });
    }

    static void Run(const std::shared_ptr<SShared>& shared)
    {
        while (std::optional<SRequested> request = shared->WaitForRequest()) {
            const unsigned number = request->number;
            FShow show = request->work([&] { return shared->IsWanted(number); });
            request.reset(); // before anybody hears of it
            Post(shared, number, std::move(show));
        }
    }
};

CBackgroundWork::CBackgroundWork()
    : m_shared(std::make_shared<SShared>())
{
    m_shared->loop = &GetMessageLoop();
}

CBackgroundWork::~CBackgroundWork()
{
    std::optional<SRequested> waiting; // goes without the lock
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->isEnding = true;
        waiting = std::exchange(m_shared->waiting, std::nullopt);
    }
    m_shared->changed.notify_all();
}

void CBackgroundWork::Request(FWork work)
{
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->waiting = SRequested{++m_shared->last, std::move(work)};
    }
    m_shared->isBusy = true;
    if (std::exchange(m_shared->hasThread, true)) {
        m_shared->changed.notify_all();
        return;
    }
    try {
        Run([shared = m_shared] { SShared::Run(shared); });
    } catch (...) {
        m_shared->hasThread = false;
        m_shared->isBusy = false;
        throw;
    }
}

void CBackgroundWork::Run(std::function<void()> work)
{
    SThreads::Get().Add(1);
    try {
        Analysis::StartDetachedThread([work = std::move(work)]() mutable {
            work();
            work = nullptr; // with what it holds
            SThreads::Get().Add(-1);
        });
    } catch (...) {
        SThreads::Get().Add(-1);
        throw;
    }
}

void CBackgroundWork::Cancel()
{
    const std::lock_guard lock(m_shared->mutex);
    ++m_shared->last;
    m_shared->waiting.reset();
    m_shared->isBusy = false;
}

bool CBackgroundWork::IsBusy() const noexcept
{
    return m_shared->isBusy;
}

void CBackgroundWork::WaitForAll()
{
    SThreads& threads = SThreads::Get();
    std::unique_lock lock(threads.mutex);
    threads.changed.wait(lock, [&threads] { return threads.count == 0; });
}

} // namespace CommonUI::Measurement
