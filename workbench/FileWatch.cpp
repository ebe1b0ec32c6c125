#include "workbench/FileWatch.h"

#include <system_error>

namespace Workbench
{

namespace
{

constexpr int c_settleTime = 300; // ms

} // namespace

CFileWatch::CFileWatch(const std::filesystem::path& path)
    : m_path(std::filesystem::absolute(path))
    , m_name(QString::fromStdU16String(m_path.u16string()))
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(c_settleTime);
    connect(&m_settled, &QTimer::timeout, this, &CFileWatch::Look);
    const auto wait = [this] { m_settled.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, wait);
    Accept();
    if (!m_stamp) // made here, and read from no file
        return;
    // The folder, too: a file that another one replaces is no longer watched.
    m_watcher.addPath(m_name);
    m_watcher.addPath(QString::fromStdU16String(m_path.parent_path().u16string()));
}

CFileWatch::CStamp CFileWatch::ReadStamp() const
{
    std::error_code error;
    const auto size = std::filesystem::file_size(m_path, error);
    if (error)
        return {};
    const auto time = std::filesystem::last_write_time(m_path, error);
    return error ? CStamp() : CStamp({size, time});
}

void CFileWatch::Accept()
{
    m_stamp = ReadStamp();
}

// A file that has gone cannot be read again; what is shown of it stays.
void CFileWatch::Look()
{
    if (!m_watcher.files().contains(m_name))
        m_watcher.addPath(m_name);
    const CStamp now = ReadStamp();
    if (!now || now == m_stamp)
        return;
    m_stamp = now;
    Q_EMIT Changed();
}

} // namespace Workbench
