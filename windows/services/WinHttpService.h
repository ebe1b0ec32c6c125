#pragma once

#include "../../export/Export.h"
#include "../../platform/network/HttpService.h"

#include <memory>

namespace CommonUI
{

/// Fetches by WinHTTP, on a thread of its own that starts with the first request. Requests say the name of
/// the program's file and nothing else about it; they carry no cookies and no passwords, not the user's for
/// the network either, and answers are taken uncompressed. Redirects lead to the same protection or a better
/// one. A certificate that is not in order ends the request, and the answer says what is wrong with it. The
/// size that a request allows is that of the content; headers are limited by the time, and by the system. An
/// answer in chunks that is cut off between two of them the system may take for whole: content has to show by
/// itself that it is.
///
/// Proxies are those of the user's settings.
class COMMONUIWIN_API CWinHttpService : public CHttpService
{
public:
    CWinHttpService();
    /// Waits for the thread, but not for servers.
    ~CWinHttpService() override;

protected:
    void Start(TIdentifier identifier, const SHttpRequest& request) override;
    void Stop(TIdentifier identifier) override;

private:
    class CTransfer;
    class CWorker;

    std::unique_ptr<CWorker> m_worker; // null until the first request
};

} // namespace CommonUI
