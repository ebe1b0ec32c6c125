#pragma once

#include "../../export/Export.h"
#include "../../platform/network/HttpService.h"

#include <memory>

namespace CommonUI
{

/// Fetches by Qt Network, on a thread of its own that starts with the first request. Requests say the name of
/// the application and nothing else about it; they carry no cookies and no passwords, and answers are taken
/// uncompressed. Redirects lead to the same protection or a better one. A certificate that is not in order
/// ends the request, and the answer says what is wrong with it. The size that a request allows is that of the
/// content; headers are limited by the time alone, or by Qt where it does so. An answer in chunks that is cut
/// off between two of them Qt may take for whole: content has to show by itself that it is.
///
/// Proxies are the application's, by QNetworkProxy.
class COMMONUIQT_API CQtHttpService : public CHttpService
{
public:
    CQtHttpService();
    /// Waits for the thread, but not for servers.
    ~CQtHttpService() override;

protected:
    void Start(TIdentifier identifier, const SHttpRequest& request) override;
    void Stop(TIdentifier identifier) override;

private:
    class CTransfer;
    class CWorker;
    struct SThread;

    std::unique_ptr<SThread> m_thread; // null until the first request
};

} // namespace CommonUI
