#pragma once

#include "HttpService.h"

#include <map>
#include <vector>

namespace CommonUI
{

/// A web without a network: servers are answers that the application writes itself.
class COMMONUI_API CMemoryHttpService : public CHttpService
{
public:
    /// What an address answers from now on. Requests that wait for it get it at once.
    void SetAnswer(const CStr& address, SHttpAnswer answer);
    /// An address that does not answer any more, until it is given an answer. All are so at first.
    void Hold(const CStr& address);
    /// Tells the progress of the requests that wait for an address.
    void Advance(const CStr& address, std::size_t received, std::size_t expected);

    /// All that was asked for, the oldest first.
    const std::vector<SHttpRequest>& GetRequests() const noexcept { return m_requests; }
    /// How many requests wait for an answer.
    std::size_t GetWaitingCount() const noexcept { return m_waiting.size(); }

protected:
    void Start(TIdentifier identifier, const SHttpRequest& request) override;
    void Stop(TIdentifier identifier) override;

private:
    void Answer(TIdentifier identifier, const SHttpRequest& request);

    std::map<CStr, SHttpAnswer> m_answers;
    std::vector<SHttpRequest> m_requests;
    std::map<TIdentifier, SHttpRequest> m_waiting;
};

} // namespace CommonUI
