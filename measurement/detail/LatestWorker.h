#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace CommonUI::Measurement
{

/// A thread that does one request after the other. One that waits is replaced by the next.
template<class TRequest>
class CLatestWorker
{
public:
    using FWork = std::function<void(const TRequest&)>;

    /// @param work called on the thread; must not throw
    explicit CLatestWorker(FWork work)
        : m_thread([shared = m_shared, work = std::move(work)] {
            while (const std::optional<TRequest> request = shared->Wait())
                work(*request);
        })
    {
    }
    /// Waits for the request that is being done.
    ~CLatestWorker()
    {
        m_shared->End();
        if (m_thread.joinable())
            m_thread.join();
    }
    CLatestWorker(const CLatestWorker&) = delete;
    CLatestWorker& operator=(const CLatestWorker&) = delete;

    /// @param request nothing to take the one back that waits
    void Request(std::optional<TRequest> request) { m_shared->Set(std::move(request)); }
    /// Does not wait for the request that is being done: its thread ends when it is. The work may then refer
    /// to nothing that has gone.
    void Abandon()
    {
        m_shared->End();
        if (m_shared->IsBusy())
            m_thread.detach();
    }

private:
    class CShared
    {
    public:
        void Set(std::optional<TRequest> request)
        {
            {
                const std::lock_guard lock(m_mutex);
                m_waiting = std::move(request);
            }
            m_changed.notify_one();
        }
        void End()
        {
            {
                const std::lock_guard lock(m_mutex);
                m_isEnding = true;
                m_waiting.reset();
            }
            m_changed.notify_one();
        }
        bool IsBusy()
        {
            const std::lock_guard lock(m_mutex);
            return m_isBusy;
        }
        std::optional<TRequest> Wait()
        {
            std::unique_lock lock(m_mutex);
            m_isBusy = false;
            m_changed.wait(lock, [this] { return m_isEnding || m_waiting; });
            m_isBusy = m_waiting.has_value();
            return std::exchange(m_waiting, std::nullopt);
        }

    private:
        std::mutex m_mutex;
        std::condition_variable m_changed;
        std::optional<TRequest> m_waiting;
        bool m_isEnding = false;
        bool m_isBusy = false;
    };

    std::shared_ptr<CShared> m_shared = std::make_shared<CShared>();
    std::thread m_thread;
};

} // namespace CommonUI::Measurement
