#include "platform/network/HttpService.h"

#include "platform/MessageLoop.h"
#include "platform/network/WebAddress.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace CommonUI
{

namespace
{

char ToLower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

class CNoHttpService final : public CHttpService
{
protected:
    void Start(TIdentifier identifier, const SHttpRequest& /*request*/) override
    {
        Finish(identifier, {.outcome = EHttpOutcome::NoService});
    }
    void Stop(TIdentifier /*identifier*/) override {}
};

CHttpService& GetNoHttpService()
{
    static CHttpService& none = *new CNoHttpService;
    return none;
}

} // namespace

constinit CCurrentService<CHttpService> CHttpService::s_current(GetNoHttpService);

std::string_view SHttpAnswer::GetHeader(std::string_view name) const noexcept
{
    const auto found = std::find_if(headers.begin(), headers.end(), [name](const SHttpHeader& header) {
        return std::equal(name.begin(), name.end(), header.name.begin(), header.name.end(),
                          [](char a, char b) { return ToLower(a) == ToLower(b); });
    });
    return found == headers.end() ? std::string_view() : found->value;
}

// Messages may come to the loop after the service has gone: they hold this weakly.
struct CHttpService::SState {
    struct SPending {
        CMessageLoop* loop;
        FAnswer answer;
        FProgress progress;
        std::size_t received = 0;
        std::size_t expected = 0;
        bool isReporting = false; // a message for that is on its way
        bool isStarted = false;
    };

    // Takes a request out; its functions are empty where there is none.
    SPending Take(TIdentifier identifier)
    {
        const std::lock_guard lock(mutex);
        auto node = pending.extract(identifier);
        return node ? std::move(node.mapped()) : SPending{};
    }
    void ShowProgress(TIdentifier identifier)
    {
        SPending shown;
        {
            const std::lock_guard lock(mutex);
            const auto found = pending.find(identifier);
            if (found == pending.end())
                return;
            found->second.isReporting = false;
            shown = found->second;
        }
        shown.progress(shown.received, shown.expected);
    }

    std::mutex mutex; // of what follows
    std::map<TIdentifier, SPending> pending;
    TIdentifier last = 0;
};

CHttpService::CHttpService()
    : m_state(std::make_shared<SState>())
{
}

CHttpService::~CHttpService() = default;

CHttpService::TIdentifier CHttpService::Get(const SHttpRequest& request, FAnswer answer, FProgress progress)
{
    TIdentifier identifier = 0;
    const bool isStarted = IsWebAddress(request.address);
    {
        const std::lock_guard lock(m_state->mutex);
        identifier = ++m_state->last;
        m_state->pending[identifier] = {.loop = &GetMessageLoop(),
                                        .answer = std::move(answer),
                                        .progress = std::move(progress),
                                        .isStarted = isStarted};
    }
    if (isStarted)
        Start(identifier, request);
    else
        Finish(identifier, {.outcome = EHttpOutcome::BadAddress});
    return identifier;
}

void CHttpService::Cancel(TIdentifier identifier)
{
    if (m_state->Take(identifier).isStarted)
        Stop(identifier);
}

void CHttpService::Report(TIdentifier identifier, std::size_t received, std::size_t expected)
{
    const std::lock_guard lock(m_state->mutex);
    const auto found = m_state->pending.find(identifier);
    if (found == m_state->pending.end() || !found->second.progress)
        return;
    found->second.received = received;
    found->second.expected = expected;
    if (!std::exchange(found->second.isReporting, true))
        found->second.loop->Post([state = std::weak_ptr(m_state), identifier] {
            if (const auto whole = state.lock())
                whole->ShowProgress(identifier);
        });
}

void CHttpService::Finish(TIdentifier identifier, SHttpAnswer answer)
{
    const std::lock_guard lock(m_state->mutex);
    const auto found = m_state->pending.find(identifier);
    if (found == m_state->pending.end())
        return;
    found->second.loop->Post([state = std::weak_ptr(m_state), identifier, answer = std::move(answer)] {
        const auto whole = state.lock();
        const FAnswer tell = whole ? whole->Take(identifier).answer : FAnswer();
        if (tell)
            tell(answer);
    });
}

CHttpService& GetHttpService()
{
    return CHttpService::s_current.Get();
}

} // namespace CommonUI
