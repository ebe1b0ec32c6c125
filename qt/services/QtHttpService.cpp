#include "qt/services/QtHttpService.h"

#include "platform/network/WebAddress.h"
#include "qt/QtText.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslError>
#include <QStringList>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include <map>
#include <utility>

namespace CommonUI
{

namespace
{

QByteArray ToBytes(const std::string& text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QNetworkRequest MakeRequest(const SHttpRequest& request, const QString& agent)
{
    QNetworkRequest made{QUrl(ToQString(request.address))};
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        made.setAttribute(attribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    made.setMaximumRedirectsAllowed(request.mostRedirects);
    made.setHeader(QNetworkRequest::UserAgentHeader, agent);
    // What is asked for in this way Qt does not inflate, so that an answer is as large as it is.
    made.setRawHeader("Accept-Encoding", "identity");
    for (const SHttpHeader& header : request.headers)
        made.setRawHeader(ToBytes(header.name), ToBytes(header.value));
    return made;
}

EHttpOutcome OutcomeOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::NoError:
        return EHttpOutcome::Answered;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::HostNotFoundError:
        return EHttpOutcome::NoServer;
    case QNetworkReply::RemoteHostClosedError:
        return EHttpOutcome::CutOff;
    case QNetworkReply::TimeoutError:
        return EHttpOutcome::TimedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return EHttpOutcome::Untrusted;
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::ProtocolUnknownError:
        return EHttpOutcome::BadRedirect;
    default:
        // These say no more than the status does.
        return error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownServerError
                   ? EHttpOutcome::Answered
                   : EHttpOutcome::Failed;
    }
}

// Whether answers of a status have no content, whatever their headers say of it.
bool IsWithoutContent(int status)
{
    return status == 204 || status == 304;
}

} // namespace

// One request, on the thread.
class CQtHttpService::CTransfer final : public QObject
{
public:
    CTransfer(CQtHttpService& service, TIdentifier identifier, const SHttpRequest& request)
        : m_service(service)
        , m_identifier(identifier)
        , m_request(request)
    {
        m_limit.setSingleShot(true);
        connect(&m_limit, &QTimer::timeout, this, [this] { End(EHttpOutcome::TimedOut); });
        m_limit.start(request.longestTime);
    }

    void Begin(QNetworkAccessManager& manager, const QString& agent)
    {
        m_reply = manager.get(MakeRequest(m_request, agent));
        m_reply->setParent(this);
        m_reply->setReadBufferSize(static_cast<qint64>(m_request.largestSize) + 1);
        connect(m_reply, &QNetworkReply::metaDataChanged, this, [this] { CheckSize(GetExpectedSize()); });
        connect(m_reply, &QNetworkReply::readyRead, this, [this] { Receive(); });
        connect(m_reply, &QNetworkReply::sslErrors, this, [this](const QList<QSslError>& errors) {
            for (const QSslError& error : errors)
                m_faults += error.errorString();
        });
        connect(m_reply, &QNetworkReply::redirected, this, [this](const QUrl& url) {
            if (!IsWebAddress(FromQString(url.toString(QUrl::FullyEncoded))))
                End(EHttpOutcome::BadRedirect);
        });
        connect(m_reply, &QNetworkReply::finished, this, [this] { OnFinished(); });
    }

private:
    // 0 where the server announces nothing, or nonsense. What comes in chunks says itself where it ends.
    std::size_t GetExpectedSize() const
    {
        if (m_reply->hasRawHeader("Transfer-Encoding"))
            return 0;
        const qlonglong length = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
        return length > 0 ? static_cast<std::size_t>(length) : 0;
    }

    void CheckSize(std::size_t size)
    {
        if (size > m_request.largestSize)
            End(EHttpOutcome::TooLarge);
    }

    void Receive()
    {
        const QByteArray bytes = m_reply->readAll();
        m_body.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        CheckSize(m_body.size());
        if (!m_hasEnded && !bytes.isEmpty())
            m_service.Report(m_identifier, m_body.size(), GetExpectedSize());
    }

    void OnFinished()
    {
        if (m_hasEnded)
            return;
        Receive();
        const int status = GetStatus();
        EHttpOutcome outcome = OutcomeOf(m_reply->error());
        if (outcome == EHttpOutcome::Answered && status == 0)
            outcome = EHttpOutcome::Failed;
        const std::size_t expected = GetExpectedSize();
        if (outcome == EHttpOutcome::Answered && expected > m_body.size() && !IsWithoutContent(status))
            outcome = EHttpOutcome::CutOff;
        const QByteArray encoding = m_reply->rawHeader("Content-Encoding");
        if (outcome == EHttpOutcome::Answered && !encoding.isEmpty() && encoding != "identity") {
            m_faults = QStringList(QStringLiteral("Content-Encoding: ") + QString::fromLatin1(encoding));
            outcome = EHttpOutcome::Failed;
        }
        End(outcome);
    }

    int GetStatus() const { return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }

    void End(EHttpOutcome outcome)
    {
        if (std::exchange(m_hasEnded, true))
            return;
        SHttpAnswer answer{.outcome = outcome, .status = GetStatus()};
        answer.address = FromQString(m_reply->url().toString(QUrl::FullyEncoded));
        if (outcome == EHttpOutcome::Answered) {
            answer.body = std::move(m_body);
            for (const auto& [name, value] : m_reply->rawHeaderPairs())
                answer.headers.push_back({name.toStdString(), value.toStdString()});
        } else {
            answer.detail = FromQString(m_faults.isEmpty() ? m_reply->errorString()
                                                           : m_faults.join(QStringLiteral("; ")));
        }
        m_service.Finish(m_identifier, std::move(answer));
        m_limit.stop();
        m_reply->abort();
        deleteLater();
    }

    CQtHttpService& m_service;
    TIdentifier m_identifier;
    SHttpRequest m_request;
    QTimer m_limit{this};
    QNetworkReply* m_reply = nullptr;
    std::string m_body;
    QStringList m_faults;
    bool m_hasEnded = false;
};

// All requests, on the thread.
class CQtHttpService::CWorker final : public QObject
{
public:
    // Transfers go before the manager that they fetch by.
    ~CWorker() override
    {
        for (const auto& [identifier, transfer] : std::exchange(m_transfers, {}))
            delete transfer;
    }

    void Begin(CQtHttpService& service, TIdentifier identifier, const SHttpRequest& request,
               const QString& agent)
    {
        auto* const transfer = new CTransfer(service, identifier, request);
        transfer->setParent(this);
        m_transfers[identifier] = transfer;
        connect(transfer, &QObject::destroyed, this, [this, identifier] { m_transfers.erase(identifier); });
        transfer->Begin(m_manager, agent);
    }
    void Stop(TIdentifier identifier)
    {
        if (const auto found = m_transfers.find(identifier); found != m_transfers.end())
            delete found->second;
    }

private:
    std::map<TIdentifier, CTransfer*> m_transfers;
    QNetworkAccessManager m_manager{this};
};

struct CQtHttpService::SThread {
    SThread()
    {
        worker->moveToThread(&thread);
        QObject::connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
        thread.setObjectName(QStringLiteral("Http"));
        thread.start();
    }
    ~SThread()
    {
        thread.quit();
        thread.wait();
    }

    QThread thread;
    CWorker* worker = new CWorker; // goes with the thread
    QString agent = QCoreApplication::applicationName();
};

CQtHttpService::CQtHttpService() = default;

CQtHttpService::~CQtHttpService() = default;

void CQtHttpService::Start(TIdentifier identifier, const SHttpRequest& request)
{
    if (!m_thread)
        m_thread = std::make_unique<SThread>();
    QMetaObject::invokeMethod(
        m_thread->worker,
        [this, worker = m_thread->worker, identifier, request, agent = m_thread->agent] {
            worker->Begin(*this, identifier, request, agent);
        },
        Qt::QueuedConnection);
}

void CQtHttpService::Stop(TIdentifier identifier)
{
    QMetaObject::invokeMethod(
        m_thread->worker, [worker = m_thread->worker, identifier] { worker->Stop(identifier); },
        Qt::QueuedConnection);
}

} // namespace CommonUI
