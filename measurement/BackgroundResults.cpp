#include "measurement/BackgroundResults.h"

#include "measurement/Results.h"
#include "platform/MessageLoop.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>

namespace CommonUI::Measurement
{

namespace
{

struct SRequested {
    unsigned number = 0;
    std::shared_ptr<const SInput> input{};
    SChoices choices{};
};

CBackgroundResults::SAnswer Compute(const SRequested& request)
{
    CBackgroundResults::SAnswer answer{.input = request.input};
    try {
        answer.tables =
            std::make_shared<CReportTables>(ComputeResults(*request.input, request.choices), false);
    } catch (const std::bad_alloc&) {
        answer.error = u"there is not enough memory";
    } catch (const std::exception& error) {
        answer.error = CStr::FromUtf8(error.what());
    }
    return answer;
}

} // namespace

// The thread with the request that waits for it.
class CBackgroundResults::CWorker
{
public:
    using FTell = std::function<void(unsigned, const SAnswer&)>; // on the worker

    explicit CWorker(FTell tell)
        : m_tell(std::move(tell))
        , m_thread([this] { Run(); })
    {
    }
    ~CWorker()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isEnding = true;
            m_waiting.reset();
        }
        m_changed.notify_one();
        m_thread.join();
    }
    CWorker(const CWorker&) = delete;
    CWorker& operator=(const CWorker&) = delete;

    void Request(std::optional<SRequested> request)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_waiting = std::move(request);
        }
        m_changed.notify_one();
    }

private:
    std::optional<SRequested> WaitForRequest()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isEnding || m_waiting; });
        return std::exchange(m_waiting, std::nullopt);
    }
    void Run()
    {
        while (const std::optional<SRequested> request = WaitForRequest())
            m_tell(request->number, Compute(*request));
    }

    FTell m_tell;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<SRequested> m_waiting;
    bool m_isEnding = false;
    std::thread m_thread; // goes first
};

CBackgroundResults::CBackgroundResults(FAnswered answered)
    : m_answered(std::move(answered))
    , m_self(std::make_shared<CBackgroundResults*>(this))
{
    m_worker = std::make_unique<CWorker>(
        [self = m_self, &loop = GetMessageLoop()](unsigned request, const SAnswer& answer) {
            loop.Post([self, request, answer] {
                if (*self)
                    (*self)->Tell(request, answer);
            });
        });
}

CBackgroundResults::~CBackgroundResults()
{
    *m_self = nullptr;
}

void CBackgroundResults::Request(std::shared_ptr<const SInput> input, SChoices choices)
{
    if (!input->surface.IsProfile())
        choices.rows.clear();
    m_isBusy = true;
    m_worker->Request(SRequested{++m_last, std::move(input), std::move(choices)});
}

void CBackgroundResults::Cancel()
{
    ++m_last;
    m_isBusy = false;
    m_worker->Request(std::nullopt);
}

void CBackgroundResults::Tell(unsigned request, const SAnswer& answer)
{
    if (request != m_last)
        return;
    m_isBusy = false;
    m_answered(answer);
}

} // namespace CommonUI::Measurement
