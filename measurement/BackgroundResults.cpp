#include "measurement/BackgroundResults.h"

#include "measurement/detail/LatestWorker.h"
#include "measurement/Results.h"
#include "platform/MessageLoop.h"

#include <exception>
#include <new>

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

class CBackgroundResults::CWorker : public CLatestWorker<SRequested>
{
public:
    using CLatestWorker::CLatestWorker;
};

CBackgroundResults::CBackgroundResults(FAnswered answered)
    : m_answered(std::move(answered))
    , m_self(std::make_shared<CBackgroundResults*>(this))
{
    m_worker =
        std::make_unique<CWorker>([self = m_self, &loop = GetMessageLoop()](const SRequested& requested) {
            loop.Post([self, request = requested.number, answer = Compute(requested)] {
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
