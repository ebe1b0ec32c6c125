#include "platform/network/MemoryHttpService.h"

#include <utility>

namespace CommonUI
{

void CMemoryHttpService::SetAnswer(const CStr& address, SHttpAnswer answer)
{
    if (answer.address.IsEmpty())
        answer.address = address;
    m_answers[address] = std::move(answer);
    const auto waiting = m_waiting;
    for (const auto& [identifier, request] : waiting)
        if (request.address == address)
            Answer(identifier, request);
}

void CMemoryHttpService::Hold(const CStr& address)
{
    m_answers.erase(address);
}

void CMemoryHttpService::Advance(const CStr& address, std::size_t received, std::size_t expected)
{
    for (const auto& [identifier, request] : m_waiting)
        if (request.address == address)
            Report(identifier, received, expected);
}

void CMemoryHttpService::Start(TIdentifier identifier, const SHttpRequest& request)
{
    m_requests.push_back(request);
    m_waiting[identifier] = request;
    if (m_answers.contains(request.address))
        Answer(identifier, request);
}

void CMemoryHttpService::Stop(TIdentifier identifier)
{
    m_waiting.erase(identifier);
}

void CMemoryHttpService::Answer(TIdentifier identifier, const SHttpRequest& request)
{
    SHttpAnswer answer = m_answers[request.address];
    if (answer.body.size() > request.largestSize)
        answer = {.outcome = EHttpOutcome::TooLarge, .address = answer.address};
    m_waiting.erase(identifier);
    Finish(identifier, std::move(answer));
}

} // namespace CommonUI
