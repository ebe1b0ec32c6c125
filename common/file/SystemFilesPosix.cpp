#include "common/file/detail/SystemFiles.h"

#ifndef _WIN32

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

[[noreturn]] void Throw(int error, const char* what)
{
    throw std::system_error(error, std::generic_category(), what);
}

// Calls until no signal comes between.
template<class FCall>
auto Retry(const FCall& call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

// Returns what the call has returned, if that is no failure.
template<class FCall>
auto Ask(const char* what, const FCall& call)
{
    const auto result = Retry(call);
    if (result < 0)
        Throw(errno, what);
    return result;
}

int Open(const char* path, int flags)
{
    return Retry([&] { return ::open(path, flags | O_CLOEXEC, 0666); });
}

int ToDescriptor(CFileSystem::CFile file)
{
    return static_cast<int>(file);
}

// Names are on the disk when their folder is. What cannot be flushed is as safe as its file system makes it.
void FlushFolder(const fs::path& folder)
{
    const int descriptor = Open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (descriptor < 0)
        return;
    Retry([&] { return ::fsync(descriptor); });
    ::close(descriptor);
}

// Another process may have removed the file of its lock after this one opened it.
bool IsStillThere(int descriptor, const fs::path& path)
{
    struct stat opened {
    };
    struct stat named {
    };
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

class CSystemFiles : public CFileSystem
{
public:
    CFile Create(const fs::path& path) override
    {
        const int descriptor = Open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL);
        if (descriptor < 0)
            Throw(errno, "cannot create temporary file");
        return descriptor;
    }
    void Write(CFile file, std::string_view bytes) override
    {
        while (!bytes.empty())
            bytes.remove_prefix(static_cast<std::size_t>(Ask("cannot write temporary file", [&] {
                return ::write(ToDescriptor(file), bytes.data(), bytes.size());
            })));
    }
    void Flush(CFile file) override
    {
        // A pipe or the like has nothing to flush.
        if (Retry([&] { return ::fsync(ToDescriptor(file)); }) != 0 && errno != EINVAL && errno != ENOTSUP)
            Throw(errno, "cannot write temporary file");
    }
    // After a signal the file is closed, too: closed once more it could be another one.
    void Close(CFile file) override
    {
        if (::close(ToDescriptor(file)) != 0 && errno != EINTR)
            Throw(errno, "cannot write temporary file");
    }
    void Replace(const fs::path& from, const fs::path& to) override
    {
        const fs::path folder = to.parent_path(); // before, as it needs memory
        Ask("cannot replace", [&] { return ::rename(from.c_str(), to.c_str()); });
        FlushFolder(folder);
    }
    void Link(const fs::path& from, const fs::path& to) override
    {
        const fs::path folder = to.parent_path();
        Ask("cannot link", [&] { return ::link(from.c_str(), to.c_str()); });
        FlushFolder(folder);
    }
    // The standard library's iterator ends the process where it gets no memory.
    void List(const fs::path& folder, const std::function<void(const fs::path&)>& visit) override
    {
        DIR* opened = nullptr;
        Ask("cannot read folder", [&] { return (opened = ::opendir(folder.c_str())) ? 0 : -1; });
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(opened, &::closedir);
        while (const dirent* const entry = ::readdir(entries.get()))
            visit(entry->d_name);
    }
    std::optional<CFile> TryLock(const fs::path& path, std::string_view holder) override
    {
        bool isOurs = false;
        const int descriptor = OpenLock(path, isOurs);
        if (descriptor < 0)
            return std::nullopt;
        if (Retry([&] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) != 0) {
            const int error = errno;
            // It would stay for ever where there are no locks. Somebody else's may be held.
            if (isOurs && error != EWOULDBLOCK)
                ::unlink(path.c_str());
            ::close(descriptor);
            if (error == EWOULDBLOCK)
                return std::nullopt;
            Throw(error, "cannot lock");
        }
        if (!IsStillThere(descriptor, path)) {
            ::close(descriptor);
            return std::nullopt;
        }
        // The lock holds whether or not others can read who has it.
        if (Retry([&] { return ::ftruncate(descriptor, 0); }) == 0)
            Retry([&] { return ::write(descriptor, holder.data(), holder.size()); });
        return descriptor;
    }
    // Asking takes a share of the lock for a moment; who wants it meanwhile tries again.
    std::optional<std::string> FindHolder(const fs::path& path) override
    {
        const int descriptor = Open(path.c_str(), O_RDONLY | O_NOFOLLOW);
        if (descriptor < 0)
            return std::nullopt;
        std::optional<std::string> holder;
        if (Retry([&] { return ::flock(descriptor, LOCK_SH | LOCK_NB); }) != 0 && errno == EWOULDBLOCK) {
            std::array<char, c_longestHolder> text;
            const auto length = Retry([&] { return ::read(descriptor, text.data(), text.size()); });
            holder.emplace(text.data(), static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0)));
        }
        ::close(descriptor);
        return holder;
    }
    void Unlock(CFile lock, const fs::path& path) noexcept override
    {
        ::unlink(path.c_str());
        ::close(ToDescriptor(lock));
    }
    std::uint64_t GetProcess() const noexcept override { return static_cast<std::uint64_t>(::getpid()); }

private:
    // Somebody else's file may be one that this process can read only, which is enough. Negative where it has
    // gone by then.
    // @param isOurs receives whether this call has made it
    static int OpenLock(const fs::path& path, bool& isOurs)
    {
        constexpr int c_flags = O_RDWR | O_CREAT | O_NOFOLLOW;
        int descriptor = Open(path.c_str(), c_flags | O_EXCL);
        isOurs = descriptor >= 0;
        if (!isOurs && errno == EEXIST)
            descriptor = Open(path.c_str(), c_flags);
        const int error = errno;
        if (descriptor < 0 && error == EACCES)
            descriptor = Open(path.c_str(), O_RDONLY | O_NOFOLLOW);
        const bool hasGone = error == EACCES && errno == ENOENT;
        if (descriptor < 0 && !hasGone)
            Throw(error, "cannot lock");
        return descriptor;
    }
};

} // namespace

CFileSystem& GetSystemFiles() noexcept
{
    // Never destroyed, as destructors of static objects may still write files; without memory of the heap.
    alignas(CSystemFiles) static std::byte s_place[sizeof(CSystemFiles)];
    static CSystemFiles& files = *new (s_place) CSystemFiles;
    return files;
}

std::optional<fs::path> ReadLink(const fs::path& path)
{
    if (!fs::is_symlink(fs::symlink_status(path)))
        return std::nullopt;
    return path.parent_path() / fs::read_symlink(path);
}

void CheckWritable(const fs::path& path)
{
    const int descriptor = Open(path.c_str(), O_WRONLY | O_APPEND);
    if (descriptor < 0)
        Throw(errno, "write-protected");
    ::close(descriptor);
}

void RemoveFile(const fs::path& path) noexcept
{
    std::error_code ignored;
    fs::remove(path, ignored);
}

} // namespace CommonUI

#endif
