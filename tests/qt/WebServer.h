#pragma once

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <map>
#include <memory>

#if defined(COMMONUI_WITH_CRYPTO)
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#endif

namespace CommonUI
{

/// What a server does with a request for a path: writes to the socket whatever it likes.
using FServe = std::function<void(QTcpSocket&)>;

/// A server of HTTP on the loopback address that answers as a test tells it, rightly or not.
class CWebServer
{
public:
    explicit CWebServer(std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>())
        : m_server(std::move(server))
    {
        m_server->listen(QHostAddress::LocalHost);
        QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(),
                         [this] { Accept(); });
    }

    void Serve(const QByteArray& path, FServe serve) { m_serves[path] = std::move(serve); }
    /// Answers with these bytes, and closes the connection or leaves it open.
    void Serve(const QByteArray& path, const QByteArray& bytes, bool closes)
    {
        Serve(path, [bytes, closes](QTcpSocket& socket) {
            socket.write(bytes);
            if (closes)
                socket.disconnectFromHost();
        });
    }

    QString GetAddress(const QByteArray& path, const char* scheme = "http") const
    {
        return QStringLiteral("%1://127.0.0.1:%2%3")
            .arg(QString::fromLatin1(scheme))
            .arg(m_server->serverPort())
            .arg(QString::fromLatin1(path));
    }
    void Close() { m_server->close(); }
    /// All that was asked, as it came.
    const QByteArray& GetAsked() const { return m_asked; }
    int GetDisconnectedCount() const { return m_disconnected; }

private:
    void Accept()
    {
        while (QTcpSocket* const socket = m_server->nextPendingConnection()) {
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { Read(*socket); });
            QObject::connect(socket, &QTcpSocket::disconnected, m_server.get(), [this] { ++m_disconnected; });
            Read(*socket);
        }
    }
    void Read(QTcpSocket& socket)
    {
        QByteArray& request = m_requests[&socket];
        request += socket.readAll();
        if (!request.endsWith("\r\n\r\n"))
            return;
        m_asked += request;
        const QByteArray path = request.split(' ').value(1);
        request.clear();
        if (const auto found = m_serves.find(path); found != m_serves.end())
            found->second(socket);
    }

    std::map<QByteArray, FServe> m_serves;
    std::map<QTcpSocket*, QByteArray> m_requests; // that have not come whole
    QByteArray m_asked;
    int m_disconnected = 0;
    std::unique_ptr<QTcpServer> m_server; // ends first
};

/// A server with a certificate for the loopback address that it has signed itself; null where the system has
/// nothing to make one.
inline std::unique_ptr<QTcpServer> MakeSelfSignedServer()
{
#if defined(COMMONUI_WITH_CRYPTO)
    if (!QSslSocket::supportsSsl())
        return nullptr;
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(
        EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"), EVP_PKEY_free);
    const std::unique_ptr<X509, decltype(&X509_free)> made(X509_new(), X509_free);
    X509_set_version(made.get(), 2);
    ASN1_INTEGER_set(X509_get_serialNumber(made.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(made.get()), -60);
    X509_gmtime_adj(X509_getm_notAfter(made.get()), 3600);
    X509_set_pubkey(made.get(), key.get());
    X509_NAME* const name = X509_get_subject_name(made.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("127.0.0.1"),
                               -1, -1, 0);
    X509_set_issuer_name(made.get(), name);
    X509_sign(made.get(), key.get(), EVP_sha256());

    const auto read = [](const std::function<int(BIO*)>& write) {
        const std::unique_ptr<BIO, decltype(&BIO_free)> pem(BIO_new(BIO_s_mem()), BIO_free);
        write(pem.get());
        char* bytes = nullptr;
        const long size = BIO_get_mem_data(pem.get(), &bytes);
        return QByteArray(bytes, size);
    };
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(
        QSslCertificate(read([&](BIO* pem) { return PEM_write_bio_X509(pem, made.get()); })));
    configuration.setPrivateKey(QSslKey(read([&](BIO* pem) {
                                            return PEM_write_bio_PrivateKey(pem, key.get(), nullptr, nullptr,
                                                                            0, nullptr, nullptr);
                                        }),
                                        QSsl::Ec));
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
#else
    return nullptr;
#endif
}

} // namespace CommonUI
