#include "windows/services/WinHttpService.h"

#include "platform/network/WebAddress.h"
#include "windows/detail/HttpExchange.h"
#include "windows/detail/ProgramFile.h"
#include "windows/detail/WinText.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <thread>
#include <utility>

namespace CommonUI
{

namespace
{

using TClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds c_longestTime = std::chrono::hours(24);

EHttpOutcome OutcomeOf(DWORD error)
{
    switch (error) {
    case ERROR_WINHTTP_NAME_NOT_RESOLVED:
    case ERROR_WINHTTP_CANNOT_CONNECT:
        return EHttpOutcome::NoServer;
    case ERROR_WINHTTP_CONNECTION_ERROR:
    case ERROR_WINHTTP_INVALID_SERVER_RESPONSE:
        return EHttpOutcome::CutOff;
    case ERROR_WINHTTP_TIMEOUT:
        return EHttpOutcome::TimedOut;
    case ERROR_WINHTTP_SECURE_FAILURE:
    case ERROR_WINHTTP_SECURE_CHANNEL_ERROR:
    case ERROR_WINHTTP_SECURE_INVALID_CERT:
    case ERROR_WINHTTP_SECURE_INVALID_CA:
    case ERROR_WINHTTP_SECURE_CERT_CN_INVALID:
    case ERROR_WINHTTP_SECURE_CERT_DATE_INVALID:
    case ERROR_WINHTTP_SECURE_CERT_REVOKED:
    case ERROR_WINHTTP_SECURE_CERT_REV_FAILED:
    case ERROR_WINHTTP_SECURE_CERT_WRONG_USAGE:
        return EHttpOutcome::Untrusted;
    default:
        return EHttpOutcome::Failed;
    }
}

// As the system words it, without the end of the line.
CStr GetErrorText(DWORD error)
{
    wchar_t text[512] = {};
    const DWORD size = FormatMessageW(
        FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        GetModuleHandleW(L"winhttp.dll"), error, 0, text, std::size(text), nullptr);
    std::wstring_view words(text, size);
    while (!words.empty() && (words.back() == L'\n' || words.back() == L'\r' || words.back() == L' '))
        words.remove_suffix(1);
    return words.empty() ? CStr::Format(u"WinHTTP %u", static_cast<unsigned int>(error)) : FromWide(words);
}

// What is wrong with a certificate, as errors of the system.
CStr GetCertificateText(DWORD flags)
{
    constexpr struct {
        DWORD flag;
        DWORD error;
    } c_faults[] = {
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_REV_FAILED, ERROR_WINHTTP_SECURE_CERT_REV_FAILED},
        {WINHTTP_CALLBACK_STATUS_FLAG_INVALID_CERT, ERROR_WINHTTP_SECURE_INVALID_CERT},
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_REVOKED, ERROR_WINHTTP_SECURE_CERT_REVOKED},
        {WINHTTP_CALLBACK_STATUS_FLAG_INVALID_CA, ERROR_WINHTTP_SECURE_INVALID_CA},
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_CN_INVALID, ERROR_WINHTTP_SECURE_CERT_CN_INVALID},
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_DATE_INVALID, ERROR_WINHTTP_SECURE_CERT_DATE_INVALID},
        {WINHTTP_CALLBACK_STATUS_FLAG_CERT_WRONG_USAGE, ERROR_WINHTTP_SECURE_CERT_WRONG_USAGE},
        {WINHTTP_CALLBACK_STATUS_FLAG_SECURITY_CHANNEL_ERROR, ERROR_WINHTTP_SECURE_CHANNEL_ERROR},
    };
    CStr text;
    for (const auto& fault : c_faults)
        if (flags & fault.flag)
            text += (text.IsEmpty() ? CStr() : CStr(u"; ")) + GetErrorText(fault.error);
    return text;
}

bool IsRedirect(int status)
{
    return (status >= 301 && status <= 303) || status == 307 || status == 308;
}

bool IsSecure(const CStr& address)
{
    return address.GetLength() > 5 && (address[4] == u's' || address[4] == u'S');
}

// Whether answers of a status have no content, whatever their headers say of it.
bool IsWithoutContent(int status)
{
    return status == 204 || status == 304;
}

THttpHandle OpenSession()
{
    const std::wstring agent = GetProgramFile().stem().wstring();
    for (const DWORD access : {WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY})
        if (THttpHandle session{WinHttpOpen(agent.c_str(), access, WINHTTP_NO_PROXY_NAME,
                                            WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC)})
            return session;
    return {};
}

} // namespace

// One request, on the thread.
class CWinHttpService::CTransfer
{
public:
    CTransfer(CWinHttpService& service, TIdentifier identifier, const SHttpRequest& request)
        : m_service(service)
        , m_identifier(identifier)
        , m_request(request)
        , m_end(TClock::now() + std::min(request.longestTime, c_longestTime))
    {
        m_answer.address = request.address;
    }

    TClock::time_point GetEnd() const { return m_end; }
    bool HasEnded() const { return m_hasEnded; }
    std::uint64_t GetExchange() const { return m_exchangeIdentifier; }

    void Ask(HINTERNET session, const std::shared_ptr<CHttpEvents>& events, std::uint64_t exchange)
    {
        m_exchangeIdentifier = exchange;
        m_exchange.emplace(events, exchange);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - TClock::now());
        // 0 stands for any time there.
        Check(m_exchange->Send(session, m_answer.address, m_request.headers,
                               std::max(left, std::chrono::milliseconds(1))));
    }

    /// @return whether the answer leads elsewhere, and has to be asked for there
    bool Take(const SHttpEvent& event)
    {
        switch (event.status) {
        case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
            Check(m_exchange->Receive());
            break;
        case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
            return TakeHeaders();
        case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
            if (event.number == 0)
                Complete();
            else
                Check(m_exchange->Read(event.number));
            break;
        case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
            TakeContent(m_exchange->GetRead(event.number));
            break;
        case WINHTTP_CALLBACK_STATUS_SECURE_FAILURE:
            m_answer.detail = GetCertificateText(event.number);
            break;
        default:
            Check(event.number);
        }
        return false;
    }

    // Where there is no memory for an answer either, there is none.
    void Fail() noexcept
    {
        try {
            End(EHttpOutcome::Failed);
        } catch (const std::exception&) {
            m_exchange.reset();
        }
    }

    void End(EHttpOutcome outcome)
    {
        m_hasEnded = true;
        m_exchange.reset();
        m_answer.outcome = outcome;
        if (outcome != EHttpOutcome::Answered) {
            m_answer.headers.clear();
            m_answer.body.clear();
        }
        m_service.Finish(m_identifier, std::move(m_answer));
    }

private:
    // 0 where the server announces nothing, or nonsense. What comes in chunks says itself where it ends.
    std::size_t GetExpectedSize() const
    {
        if (!m_answer.GetHeader("Transfer-Encoding").empty())
            return 0;
        const std::string_view text = m_answer.GetHeader("Content-Length");
        std::size_t size = 0;
        std::from_chars(text.data(), text.data() + text.size(), size);
        return size;
    }

    void Check(DWORD error)
    {
        if (error == 0)
            return;
        if (m_answer.detail.IsEmpty())
            m_answer.detail = GetErrorText(error);
        // What a server promised and did not send is missing, whatever the system calls it.
        End(m_answer.status != 0 && OutcomeOf(error) == EHttpOutcome::Failed ? EHttpOutcome::CutOff
                                                                             : OutcomeOf(error));
    }

    bool TakeHeaders()
    {
        m_answer.status = m_exchange->GetStatus();
        m_answer.headers = m_exchange->GetHeaders();
        const std::string_view location = m_answer.GetHeader("Location");
        if (IsRedirect(m_answer.status) && !location.empty())
            return Follow(CStr::FromUtf8(location));
        if (GetExpectedSize() > m_request.largestSize && !IsWithoutContent(m_answer.status))
            End(EHttpOutcome::TooLarge);
        else
            Check(m_exchange->AskForMore());
        return false;
    }

    bool Follow(const CStr& location)
    {
        const CStr next = ResolveWebAddress(location, m_answer.address);
        if (next.IsEmpty() || (IsSecure(m_answer.address) && !IsSecure(next)) ||
            ++m_redirects > m_request.mostRedirects) {
            m_answer.detail = location;
            End(EHttpOutcome::BadRedirect);
            return false;
        }
        m_answer = {};
        m_answer.address = next;
        return true;
    }

    void TakeContent(std::string_view content)
    {
        // What a server sends besides what it announced is no content.
        const std::size_t expected = GetExpectedSize();
        if (expected != 0)
            content = content.substr(0, expected - m_answer.body.size());
        if (content.empty())
            return Complete();
        if (content.size() > m_request.largestSize - m_answer.body.size())
            return End(EHttpOutcome::TooLarge);
        m_answer.body += content;
        m_service.Report(m_identifier, m_answer.body.size(), expected);
        Check(m_exchange->AskForMore());
    }

    void Complete()
    {
        const std::string_view encoding = m_answer.GetHeader("Content-Encoding");
        if (GetExpectedSize() > m_answer.body.size() && !IsWithoutContent(m_answer.status))
            return Check(ERROR_WINHTTP_CONNECTION_ERROR);
        if (!encoding.empty() && encoding != "identity") {
            m_answer.detail = u"Content-Encoding: " + CStr::FromUtf8(encoding);
            return End(EHttpOutcome::Failed);
        }
        End(m_answer.status == 0 ? EHttpOutcome::CutOff : EHttpOutcome::Answered);
    }

    CWinHttpService& m_service;
    TIdentifier m_identifier;
    SHttpRequest m_request;
    TClock::time_point m_end;
    SHttpAnswer m_answer;
    std::optional<CHttpExchange> m_exchange;
    std::uint64_t m_exchangeIdentifier = 0;
    int m_redirects = 0;
    bool m_hasEnded = false;
};

// All requests, on the thread. What begins and stops them are events too, of no exchange.
class CWinHttpService::CWorker
{
public:
    explicit CWorker(CWinHttpService& service)
        : m_service(service)
        , m_thread([this] { Run(); })
    {
    }
    ~CWorker()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isEnding = true;
        }
        m_events->Put({});
        m_thread.join();
    }
    CWorker(const CWorker&) = delete;
    CWorker& operator=(const CWorker&) = delete;

    void Begin(TIdentifier identifier, const SHttpRequest& request)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_begun.emplace_back(identifier, request);
        }
        m_events->Put({});
    }
    void Stop(TIdentifier identifier)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_stopped.push_back(identifier);
        }
        m_events->Put({});
    }

private:
    void Run()
    {
        const THttpHandle session = OpenSession();
        const DWORD error = session ? 0 : GetLastError();
        while (TakeOrders()) {
            for (const auto& [identifier, request] : std::exchange(m_starting, {})) {
                CTransfer& transfer =
                    m_transfers.try_emplace(identifier, m_service, identifier, request).first->second;
                Try(transfer, [&] {
                    if (error != 0)
                        transfer.End(OutcomeOf(error));
                    else
                        transfer.Ask(session.get(), m_events, ++m_lastExchange);
                });
            }
            EndLate();
            std::erase_if(m_transfers, [](const auto& entry) { return entry.second.HasEnded(); });
            if (const std::optional<SHttpEvent> event = m_events->Take(GetNextEnd()))
                Tell(*event, session.get());
        }
        m_transfers.clear();
        m_events->WaitUntilClosed();
    }

    // False when it is to end.
    bool TakeOrders()
    {
        const std::lock_guard lock(m_mutex);
        m_starting = std::exchange(m_begun, {});
        for (const TIdentifier identifier : std::exchange(m_stopped, {})) {
            m_transfers.erase(identifier);
            std::erase_if(m_starting, [identifier](const auto& entry) { return entry.first == identifier; });
        }
        return !m_isEnding;
    }

    void Tell(const SHttpEvent& event, HINTERNET session)
    {
        for (auto& [identifier, transfer] : m_transfers)
            if (transfer.GetExchange() == event.exchange)
                Try(transfer, [&, &told = transfer] {
                    if (told.Take(event))
                        told.Ask(session, m_events, ++m_lastExchange);
                });
    }

    // One request that finds no memory leaves the others alone.
    template<class FStep>
    static void Try(CTransfer& transfer, FStep step)
    {
        try {
            step();
        } catch (const std::exception&) {
            transfer.Fail();
        }
    }

    void EndLate()
    {
        for (auto& [identifier, transfer] : m_transfers)
            if (!transfer.HasEnded() && transfer.GetEnd() <= TClock::now())
                Try(transfer, [&ended = transfer] { ended.End(EHttpOutcome::TimedOut); });
    }

    TClock::time_point GetNextEnd() const
    {
        TClock::time_point next = TClock::now() + c_longestTime;
        for (const auto& [identifier, transfer] : m_transfers)
            next = std::min(next, transfer.GetEnd());
        return next;
    }

    CWinHttpService& m_service;
    std::shared_ptr<CHttpEvents> m_events = std::make_shared<CHttpEvents>();
    std::mutex m_mutex; // of these three
    std::vector<std::pair<TIdentifier, SHttpRequest>> m_begun;
    std::vector<TIdentifier> m_stopped;
    bool m_isEnding = false;
    std::vector<std::pair<TIdentifier, SHttpRequest>> m_starting;
    std::map<TIdentifier, CTransfer> m_transfers;
    std::uint64_t m_lastExchange = 0;
    std::thread m_thread; // starts last
};

CWinHttpService::CWinHttpService() = default;

CWinHttpService::~CWinHttpService() = default;

void CWinHttpService::Start(TIdentifier identifier, const SHttpRequest& request)
{
    if (!m_worker)
        m_worker = std::make_unique<CWorker>(*this);
    m_worker->Begin(identifier, request);
}

void CWinHttpService::Stop(TIdentifier identifier)
{
    m_worker->Stop(identifier);
}

} // namespace CommonUI
