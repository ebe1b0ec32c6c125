#pragma once

#include "common/Str.h"
#include "platform/network/HttpService.h"
#include "windows/detail/Api.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <winhttp.h>

namespace CommonUI
{

/// What the system says of an exchange, which it does on any of its threads.
struct SHttpEvent {
    std::uint64_t exchange = 0;
    DWORD status = 0; ///< WINHTTP_CALLBACK_STATUS_...
    DWORD number =
        0; ///< the error of a failure, the flags of a certificate's, and how many bytes came otherwise
};

/// Brings events to the thread that waits for them. Any thread.
class CHttpEvents
{
public:
    using TTime = std::chrono::steady_clock::time_point;

    void Put(const SHttpEvent& event);
    /// The oldest event; nothing where none has come until then.
    std::optional<SHttpEvent> Take(TTime until);

    /// Exchanges that the system has not let go of yet.
    void CountOpen(int difference);
    /// Waits until the system calls nothing any more, but not for ever.
    void WaitUntilClosed();

private:
    std::mutex m_mutex; // of what follows
    std::condition_variable m_changed;
    std::deque<SHttpEvent> m_events;
    int m_open = 0;
};

/// Closes a handle of WinHTTP.
struct SHttpClose {
    void operator()(HINTERNET handle) const { WinHttpCloseHandle(handle); }
};
using THttpHandle = std::unique_ptr<void, SHttpClose>;

/// One question to one server and its answer: a transfer has as many as it is led elsewhere, and one more.
/// Each call of a function that begins something ends in an event. Nothing of it comes through after the
/// destruction but what is on its way already.
class CHttpExchange
{
public:
    /// @param identifier of its events
    CHttpExchange(std::shared_ptr<CHttpEvents> events, std::uint64_t identifier);

    /// Asks. @param longest how long one step may take
    /// @return an error of the system; 0 where it has begun
    DWORD Send(HINTERNET session, const CStr& address, const std::vector<SHttpHeader>& headers,
               std::chrono::milliseconds longest);
    DWORD Receive();
    DWORD AskForMore();
    /// Takes what has come, at most so many bytes.
    DWORD Read(DWORD size);
    /// What was read last.
    std::string_view GetRead(DWORD size) const;

    int GetStatus() const;
    /// In the order of the answer; empty before it.
    std::vector<SHttpHeader> GetHeaders() const;

private:
    struct SContext;

    static void CALLBACK OnStatus(HINTERNET handle, DWORD_PTR context, DWORD status, void* information,
                                  DWORD length);

    THttpHandle m_connection;
    THttpHandle m_request; // goes before the connection
    SContext* m_context;   // the handle's, as soon as there is one
    std::unique_ptr<SContext, void (*)(SContext*)> m_unused;
};

} // namespace CommonUI
