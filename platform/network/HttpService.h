#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../Service.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// A header of HTTP; names are compared without regard to case.
struct SHttpHeader {
    std::string name;  ///< such as "Content-Type"
    std::string value; ///< what stands behind the colon

    friend bool operator==(const SHttpHeader&, const SHttpHeader&) = default;
};

/// What is fetched, and what that may cost.
struct SHttpRequest {
    CStr address{};                                 ///< see IsWebAddress
    std::vector<SHttpHeader> headers{};             ///< sent besides those of the service itself
    std::size_t largestSize = std::size_t{1} << 20; ///< of the content, in bytes
    std::chrono::milliseconds longestTime{30'000};  ///< from the call to the whole answer
    int mostRedirects = 5;                          ///< how often the server may lead elsewhere
};

/// How a request ended.
enum class EHttpOutcome {
    Answered,    ///< the server's answer is whole, whatever its status
    BadAddress,  ///< the address is not one of the web
    NoServer,    ///< there is no such server, or nobody answers there
    CutOff,      ///< the connection ended within the answer
    TimedOut,    ///< the answer was not whole in time
    TooLarge,    ///< the answer is larger than the request allows
    BadRedirect, ///< the server leads elsewhere too often, or to where less is protected
    Untrusted,   ///< the server does not prove who it is; nothing was asked of it
    Failed,      ///< something else
    NoService    ///< the program has no service that fetches
};

/// What came of a request.
struct COMMONUI_API SHttpAnswer {
    EHttpOutcome outcome = EHttpOutcome::Answered; ///< decides which of the others count
    int status = 0;                                ///< of HTTP, such as 200; 0 where there is no answer
    std::vector<SHttpHeader> headers{};            ///< of this answer, not of redirects before it
    std::string body{};                            ///< empty where the answer is not whole
    CStr address{};                                ///< where the answer is from, behind all redirects
    CStr detail{}; ///< the reason as the system words it; for Untrusted what is wrong with the certificate

    /// The value of the first header of a name; empty where there is none.
    std::string_view GetHeader(std::string_view name) const noexcept;
};

/// What an application lends the library to fetch from the web. Nothing is fetched but what is asked for
/// here. Used on the user-interface thread, which has a message loop; nothing here waits.
class COMMONUI_API CHttpService
{
public:
    /// The number of a request; never 0.
    using TIdentifier = std::uint64_t;
    /// Hears how a request has ended.
    using FAnswer = std::function<void(const SHttpAnswer&)>;
    /// @param received bytes of the content that have come so far
    /// @param expected how many the server announces; 0 where it does not
    using FProgress = std::function<void(std::size_t received, std::size_t expected)>;

    CHttpService();
    /// Requests that run are forgotten: nothing is called any more.
    virtual ~CHttpService();
    CHttpService(const CHttpService&) = delete;
    CHttpService& operator=(const CHttpService&) = delete;

    /// Fetches. The functions are called by messages to the loop, never from within this call: `progress` any
    /// number of times, then `answer` once.
    /// @return the number of the request; never 0, and none is given twice
    TIdentifier Get(const SHttpRequest& request, FAnswer answer, FProgress progress = {});
    /// Ends a request; its functions are not called any more. What has ended already is left alone.
    void Cancel(TIdentifier identifier);

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CHttpService> s_current;

protected:
    /// Begins a request whose address is one of the web. It must end in Finish unless it is stopped.
    virtual void Start(TIdentifier identifier, const SHttpRequest& request) = 0;
    /// A request that was started is not wanted any more.
    virtual void Stop(TIdentifier identifier) = 0;

    /// Any thread may call these two. What was stopped or has ended is left alone. A class that calls them
    /// from other threads ends these before it is destroyed.
    void Report(TIdentifier identifier, std::size_t received, std::size_t expected);
    /// The request has ended: calls its `answer` by a message.
    void Finish(TIdentifier identifier, SHttpAnswer answer);

private:
    struct SState;

    std::shared_ptr<SState> m_state;
};

/// The service of the process: unless one was set there is none, and every answer is NoService.
COMMONUI_API CHttpService& GetHttpService();

} // namespace CommonUI
