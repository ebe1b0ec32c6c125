#include "common/file/detail/SystemFiles.h"

#ifndef _WIN32

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

// Calls until no signal comes between. Returns what the call has returned, if that is no failure.
template<class FCall>
auto Ask(const char* what, const FCall& call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0)
            return result;
        if (errno != EINTR)
            Throw(errno, what);
    }
}

int ToDescriptor(CFileSystem::CFile file)
{
    return static_cast<int>(file);
}

// Names are on the disk when their folder is. What cannot be flushed is as safe as its file system makes it.
void FlushFolder(const fs::path& folder)
{
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
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
        return Ask("cannot create temporary file",
                   [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); });
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
        if (::fsync(ToDescriptor(file)) != 0 && errno != EINVAL && errno != ENOTSUP)
            Throw(errno, "cannot write temporary file");
    }
    void Close(CFile file) override
    {
        if (::close(ToDescriptor(file)) != 0 && errno != EINTR)
            Throw(errno, "cannot write temporary file");
    }
    void Replace(const fs::path& from, const fs::path& to) override
    {
        const fs::path folder = to.parent_path(); // before, as it needs memory
        fs::rename(from, to);
        FlushFolder(folder);
    }
    // The standard library's iterator ends the process where it gets no memory.
    void List(const fs::path& folder, const std::function<void(const fs::path&)>& visit) override
    {
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), &::closedir);
        if (!entries)
            Throw(errno, "cannot read folder");
        while (const dirent* const entry = ::readdir(entries.get()))
            visit(entry->d_name);
    }
    std::optional<CFile> TryLock(const fs::path& path, std::string_view holder) override
    {
        const int descriptor = OpenLock(path);
        if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            ::close(descriptor);
            if (error == EWOULDBLOCK || error == EINTR)
                return std::nullopt;
            Throw(error, "cannot lock");
        }
        if (!IsStillThere(descriptor, path)) {
            ::close(descriptor);
            return std::nullopt;
        }
        // The lock holds whether or not others can read who has it.
        if (::ftruncate(descriptor, 0) == 0) [[maybe_unused]]
            const auto written = ::write(descriptor, holder.data(), holder.size());
        return descriptor;
    }
    void Unlock(CFile lock, const fs::path& path) noexcept override
    {
        ::unlink(path.c_str());
        ::close(ToDescriptor(lock));
    }
    std::uint64_t GetProcess() const noexcept override { return static_cast<std::uint64_t>(::getpid()); }

private:
    // Somebody else's file may be one that this process can read only, which is enough.
    static int OpenLock(const fs::path& path)
    {
        constexpr int c_flags = O_CREAT | O_CLOEXEC | O_NOFOLLOW;
        const int descriptor = ::open(path.c_str(), O_RDWR | c_flags, 0666);
        if (descriptor >= 0)
            return descriptor;
        if (errno != EACCES)
            Throw(errno, "cannot lock");
        return Ask("cannot lock", [&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW); });
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

} // namespace CommonUI

#endif
