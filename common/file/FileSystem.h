#pragma once

#include "../../export/Export.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace CommonUI
{

/// What the library asks of the system where it writes files and keeps others from them. All functions throw
/// std::system_error. Any thread may call.
class COMMONDLL_API CFileSystem
{
public:
    /// An open file, or a lock that is held.
    using CFile = std::intptr_t;

    virtual ~CFileSystem();

    /// Makes a file that was not there, to write to.
    virtual CFile Create(const std::filesystem::path& path) = 0;
    /// Writes all of the bytes behind what has been written.
    virtual void Write(CFile file, std::string_view bytes) = 0;
    /// Returns when what has been written would be there after a power cut, as far as the system can tell.
    virtual void Flush(CFile file) = 0;
    /// The file is closed also where this throws.
    virtual void Close(CFile file) = 0;
    /// Gives a file the name of another one, which goes in the same moment, and flushes the change.
    virtual void Replace(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

    /// Gives a file a second name, which nothing has yet, and flushes it. Not every system can.
    virtual void Link(const std::filesystem::path& from, const std::filesystem::path& to);

    /// Calls `visit` with the name of each entry of a folder.
    virtual void List(const std::filesystem::path& folder,
                      const std::function<void(const std::filesystem::path&)>& visit) = 0;

    /// The path of what is there that is the same whatever way leads to it: in full, without links.
    virtual std::filesystem::path Resolve(const std::filesystem::path& path);

    /// Locks by a file that comes into being for it, and goes with the lock, also when the process ends.
    /// @param holder what it says to those who look who holds the lock
    /// @return nothing while somebody else holds the lock
    virtual std::optional<CFile> TryLock(const std::filesystem::path& path, std::string_view holder) = 0;
    /// What the holder of the lock says; nothing while nobody holds it. Its file may be there without: that
    /// of a process that was killed.
    virtual std::optional<std::string> FindHolder(const std::filesystem::path& path);
    /// Gives back a lock of TryLock, and removes its file.
    virtual void Unlock(CFile lock, const std::filesystem::path& path) noexcept = 0;

    /// A number that no other process of this machine has now.
    virtual std::uint64_t GetProcess() const noexcept = 0;
};

/// What the library writes files with: the system itself, unless another one is in place.
COMMONDLL_API CFileSystem& GetFileSystem() noexcept;

/// Puts a file system in place as long as it lives, for tests. They are nested, and no file is written
/// meanwhile by another thread than those that the test knows of.
class COMMONDLL_API CFileSystemScope
{
public:
    /// @param system must live longer
    explicit CFileSystemScope(CFileSystem& system) noexcept;
    ~CFileSystemScope();
    CFileSystemScope(const CFileSystemScope&) = delete;
    CFileSystemScope& operator=(const CFileSystemScope&) = delete;

private:
    CFileSystem* m_previous;
};

} // namespace CommonUI
