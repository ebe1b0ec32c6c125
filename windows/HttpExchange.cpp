#include "windows/detail/HttpExchange.h"

#include "windows/detail/WinText.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <new>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::size_t c_bufferSize = 16'384;
// Windows takes no time for that; Wine lets what reads from a server wait for it.
constexpr std::chrono::seconds c_longestClosing{2};

std::wstring FromBytes(std::string_view bytes)
{
    return {bytes.begin(), bytes.end()};
}

// Headers are bytes; the system shows each as one character.
std::string ToBytes(std::wstring_view text)
{
    std::string bytes;
    std::transform(text.begin(), text.end(), std::back_inserter(bytes),
                   [](wchar_t character) { return static_cast<char>(character); });
    return bytes;
}

std::wstring JoinHeaders(const std::vector<SHttpHeader>& headers)
{
    // What is asked for in this way nobody inflates, so that an answer is as large as it is.
    std::wstring joined = L"Accept-Encoding: identity\r\n";
    for (const SHttpHeader& header : headers)
        joined += FromBytes(header.name + ": " + header.value + "\r\n");
    return joined;
}

struct SPlace {
    std::wstring server;
    std::wstring path; // and what follows, the anchor aside
    INTERNET_PORT port = 0;
    bool isSecure = false;
};

std::optional<SPlace> ParsePlace(const CStr& address)
{
    std::wstring text = ToWide(address);
    text.resize(std::min(text.size(), text.find(L'#')));
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    for (DWORD* const length : {&parts.dwHostNameLength, &parts.dwUrlPathLength, &parts.dwExtraInfoLength})
        *length = static_cast<DWORD>(-1);
    if (!WinHttpCrackUrl(text.c_str(), 0, 0, &parts))
        return std::nullopt;
    SPlace place{{parts.lpszHostName, parts.dwHostNameLength},
                 {parts.lpszUrlPath, parts.dwUrlPathLength},
                 parts.nPort,
                 parts.nScheme == INTERNET_SCHEME_HTTPS};
    place.path.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    if (place.path.empty() || place.path.front() != L'/')
        place.path.insert(0, 1, L'/');
    return place;
}

SHttpHeader ParseHeader(std::wstring_view line, std::size_t colon)
{
    const std::size_t start = line.find_first_not_of(L" \t", colon + 1);
    return {ToBytes(line.substr(0, colon)),
            start == std::wstring_view::npos ? std::string() : ToBytes(line.substr(start))};
}

} // namespace

void CHttpEvents::Put(const SHttpEvent& event)
{
    const std::lock_guard lock(m_mutex);
    m_events.push_back(event);
    m_changed.notify_all();
}

std::optional<SHttpEvent> CHttpEvents::Take(TTime until)
{
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait_until(lock, until, [this] { return !m_events.empty(); }))
        return std::nullopt;
    const SHttpEvent event = m_events.front();
    m_events.pop_front();
    return event;
}

void CHttpEvents::CountOpen(int difference)
{
    const std::lock_guard lock(m_mutex);
    m_open += difference;
    m_changed.notify_all();
}

void CHttpEvents::WaitUntilClosed()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, c_longestClosing, [this] { return m_open == 0; });
}

// What the system writes to and tells of, until it has closed the handle.
struct CHttpExchange::SContext {
    std::shared_ptr<CHttpEvents> events;
    std::uint64_t identifier = 0;
    std::array<char, c_bufferSize> buffer{};
};

CHttpExchange::CHttpExchange(std::shared_ptr<CHttpEvents> events, std::uint64_t identifier)
    : m_context(new SContext{std::move(events), identifier})
    , m_unused(m_context, [](SContext* context) { delete context; })
{
}

DWORD CHttpExchange::Send(HINTERNET session, const CStr& address, const std::vector<SHttpHeader>& headers,
                          std::chrono::milliseconds longest)
{
    const std::optional<SPlace> place = ParsePlace(address);
    if (!place)
        return GetLastError();
    m_connection.reset(WinHttpConnect(session, place->server.c_str(), place->port, 0));
    if (!m_connection)
        return GetLastError();
    m_request.reset(WinHttpOpenRequest(m_connection.get(), L"GET", place->path.c_str(), nullptr,
                                       WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                                       place->isSecure ? WINHTTP_FLAG_SECURE : 0));
    if (!m_request)
        return GetLastError();

    DWORD_PTR context = reinterpret_cast<DWORD_PTR>(m_context);
    DWORD unwanted = WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_AUTHENTICATION | WINHTTP_DISABLE_REDIRECTS;
    const int step = static_cast<int>(longest.count());
    const std::wstring lines = JoinHeaders(headers);
    // Who closes the handle is told so only by a callback that has the context.
    if (!WinHttpSetOption(m_request.get(), WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) ||
        WinHttpSetStatusCallback(m_request.get(), &CHttpExchange::OnStatus,
                                 WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS |
                                     WINHTTP_CALLBACK_FLAG_SECURE_FAILURE | WINHTTP_CALLBACK_FLAG_HANDLES,
                                 0) == WINHTTP_INVALID_STATUS_CALLBACK)
        return GetLastError();
    m_context->events->CountOpen(1);
    static_cast<void>(m_unused.release());
    const bool isSent =
        WinHttpSetOption(m_request.get(), WINHTTP_OPTION_DISABLE_FEATURE, &unwanted, sizeof unwanted) &&
        WinHttpSetTimeouts(m_request.get(), step, step, step, step) &&
        WinHttpSendRequest(m_request.get(), lines.c_str(), static_cast<DWORD>(lines.size()),
                           WINHTTP_NO_REQUEST_DATA, 0, 0, context);
    return isSent ? 0 : GetLastError();
}

DWORD CHttpExchange::Receive()
{
    return WinHttpReceiveResponse(m_request.get(), nullptr) ? 0 : GetLastError();
}

DWORD CHttpExchange::AskForMore()
{
    return WinHttpQueryDataAvailable(m_request.get(), nullptr) ? 0 : GetLastError();
}

DWORD CHttpExchange::Read(DWORD size)
{
    return WinHttpReadData(m_request.get(), m_context->buffer.data(),
                           std::min(size, static_cast<DWORD>(c_bufferSize)), nullptr)
               ? 0
               : GetLastError();
}

std::string_view CHttpExchange::GetRead(DWORD size) const
{
    return {m_context->buffer.data(), size};
}

int CHttpExchange::GetStatus() const
{
    DWORD status = 0;
    DWORD size = sizeof status;
    return m_request &&
                   WinHttpQueryHeaders(m_request.get(), WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                                       WINHTTP_HEADER_NAME_BY_INDEX, &status, &size, WINHTTP_NO_HEADER_INDEX)
               ? static_cast<int>(status)
               : 0;
}

std::vector<SHttpHeader> CHttpExchange::GetHeaders() const
{
    DWORD size = 0;
    WinHttpQueryHeaders(m_request.get(), WINHTTP_QUERY_RAW_HEADERS_CRLF, WINHTTP_HEADER_NAME_BY_INDEX,
                        nullptr, &size, WINHTTP_NO_HEADER_INDEX);
    std::wstring text(size / sizeof(wchar_t), L'\0');
    std::vector<SHttpHeader> headers;
    if (text.empty() ||
        !WinHttpQueryHeaders(m_request.get(), WINHTTP_QUERY_RAW_HEADERS_CRLF, WINHTTP_HEADER_NAME_BY_INDEX,
                             text.data(), &size, WINHTTP_NO_HEADER_INDEX))
        return headers;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find(L"\r\n", start)) != std::wstring::npos; start = end + 2) {
        const std::wstring_view line = std::wstring_view(text).substr(start, end - start);
        const std::size_t colon = line.find(L':');
        if (start != 0 && colon != std::wstring_view::npos) // the first line has the status
            headers.push_back(ParseHeader(line, colon));
    }
    return headers;
}

void CALLBACK CHttpExchange::OnStatus(HINTERNET /*handle*/, DWORD_PTR context, DWORD status,
                                      void* information, DWORD length)
{
    auto* const told = reinterpret_cast<SContext*>(context);
    if (!told)
        return;
    SHttpEvent event{told->identifier, status, 0};
    switch (status) {
    case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING: {
        const std::unique_ptr<SContext> gone(told);
        gone->events->CountOpen(-1);
        return;
    }
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
        event.number = static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError;
        break;
    case WINHTTP_CALLBACK_STATUS_SECURE_FAILURE:
    case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
        event.number = *static_cast<const DWORD*>(information);
        break;
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
        event.number = length;
        break;
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
        break;
    default:
        return;
    }
    try {
        told->events->Put(event);
    } catch (const std::bad_alloc&) { // the request ends with its time
    }
}

} // namespace CommonUI
