#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>

namespace Workbench
{

/// Tells when a file changes: its size, its time, or whether it is there. A program that writes a file in
/// pieces, or puts another one in its place, is told of once.
class CFileWatch : public QObject
{
    Q_OBJECT

public:
    explicit CFileWatch(const std::filesystem::path& path);

    /// What the file is now is what it is from now on compared with.
    void Accept();

Q_SIGNALS:
    void Changed();

private:
    using CStamp = std::optional<std::pair<std::uintmax_t, std::filesystem::file_time_type>>;

    CStamp ReadStamp() const;
    void Look();

    std::filesystem::path m_path;
    QString m_name;
    QFileSystemWatcher m_watcher;
    QTimer m_settled;
    CStamp m_stamp;
};

} // namespace Workbench
