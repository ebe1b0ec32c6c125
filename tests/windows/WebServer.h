#pragma once

#include <winsock2.h>

#include <list>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace CommonUI
{

/// A server of HTTP on the loopback address that answers as a test tells it, rightly or not. Each connection
/// has a thread, which ends with it.
class CWebServer
{
public:
    enum class EBehind {
        Closes,
        Waits,
        Drips
    }; ///< what follows the answer: a drip is a byte from time to time

    CWebServer()
    {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
        m_socket = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof place;
        bind(m_socket, reinterpret_cast<sockaddr*>(&place), size);
        getsockname(m_socket, reinterpret_cast<sockaddr*>(&place), &size);
        m_port = ntohs(place.sin_port);
        listen(m_socket, 16);
        m_threads.emplace_back([this] { Accept(); });
    }
    ~CWebServer()
    {
        Close();
        for (std::thread& thread : m_threads)
            thread.join();
        WSACleanup();
    }
    CWebServer(const CWebServer&) = delete;
    CWebServer& operator=(const CWebServer&) = delete;

    void Serve(const std::string& path, const std::string& bytes, EBehind behind)
    {
        const std::lock_guard lock(m_mutex);
        m_serves[path] = {bytes, behind};
    }
    std::string GetAddress(const std::string& path) const
    {
        return "http://127.0.0.1:" + std::to_string(m_port) + path;
    }
    /// Ends the server and all connections. Nobody is there any more.
    void Close()
    {
        {
            const std::lock_guard lock(m_mutex);
            if (m_isClosed)
                return;
            m_isClosed = true;
        }
        closesocket(m_socket);
        m_threads.front().join();
        m_threads.pop_front();
    }

    /// All that was asked, as it came.
    std::string GetAsked() const
    {
        const std::lock_guard lock(m_mutex);
        return m_asked;
    }
    int GetDisconnectedCount() const
    {
        const std::lock_guard lock(m_mutex);
        return m_disconnected;
    }

private:
    struct SServe {
        std::string bytes;
        EBehind behind = EBehind::Closes;
    };

    void Accept()
    {
        for (SOCKET connection; (connection = accept(m_socket, nullptr, nullptr)) != INVALID_SOCKET;) {
            const std::lock_guard lock(m_mutex);
            m_threads.emplace_back([this, connection] { Talk(connection); });
        }
    }
    void Talk(SOCKET connection)
    {
        std::string request;
        char buffer[4096];
        SServe serve;
        for (int count; serve.bytes.empty() && (count = Receive(connection, buffer, sizeof buffer)) > 0;) {
            request.append(buffer, static_cast<std::size_t>(count));
            if (!request.ends_with("\r\n\r\n"))
                continue;
            serve = Find(request);
            request.clear();
            send(connection, serve.bytes.data(), static_cast<int>(serve.bytes.size()), 0);
            if (serve.behind == EBehind::Waits)
                serve.bytes.clear(); // and hears what comes next
            else
                break;
        }
        while (serve.behind == EBehind::Drips && !IsClosed() && send(connection, "x", 1, 0) == 1)
            Sleep(5);
        const std::lock_guard lock(m_mutex);
        ++m_disconnected;
        shutdown(connection, SD_SEND);
        closesocket(connection);
    }
    bool IsClosed() const
    {
        const std::lock_guard lock(m_mutex);
        return m_isClosed;
    }
    // Ends with the server too.
    int Receive(SOCKET connection, char* buffer, int size) const
    {
        for (;;) {
            if (IsClosed())
                return 0;
            fd_set sockets;
            FD_ZERO(&sockets);
            FD_SET(connection, &sockets);
            timeval step{0, 20'000};
            if (select(0, &sockets, nullptr, nullptr, &step) != 0)
                return recv(connection, buffer, size, 0);
        }
    }
    SServe Find(const std::string& request)
    {
        const std::lock_guard lock(m_mutex);
        m_asked += request;
        const std::size_t start = request.find(' ') + 1;
        return m_serves[request.substr(start, request.find(' ', start) - start)];
    }

    SOCKET m_socket = INVALID_SOCKET;
    unsigned int m_port = 0;
    mutable std::mutex m_mutex; // of what follows
    std::map<std::string, SServe> m_serves;
    std::string m_asked;
    int m_disconnected = 0;
    bool m_isClosed = false;
    std::list<std::thread> m_threads; // the first one accepts
};

} // namespace CommonUI
