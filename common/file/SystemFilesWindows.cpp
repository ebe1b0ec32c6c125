#include "common/file/detail/SystemFiles.h"

#ifdef _WIN32

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

constexpr DWORD c_longestPath = 32768;

[[noreturn]] void Throw(DWORD error, const char* what)
{
    throw std::system_error(static_cast<int>(error), std::system_category(), what);
}

HANDLE ToHandle(CFileSystem::CFile file)
{
    return reinterpret_cast<HANDLE>(file);
}

CFileSystem::CFile ToFile(HANDLE handle)
{
    return reinterpret_cast<CFileSystem::CFile>(handle);
}

// Whether somebody has the file open now, who may soon have closed it. A file that goes as soon as it is
// closed denies access, too.
bool IsInUse(DWORD error)
{
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

// Calls until that succeeds, with growing waits, for about a second while `mayEnd` says so of the error.
template<class FCall>
void Retry(const char* what, bool (*mayEnd)(DWORD error), const FCall& call)
{
    constexpr DWORD c_firstWait = 5;
    constexpr DWORD c_longestWait = 80;
    constexpr int c_mostTries = 16;
    DWORD wait = c_firstWait;
    for (int tries = 1; !call(); ++tries) {
        const DWORD error = GetLastError();
        if (!mayEnd(error) || tries == c_mostTries)
            Throw(error, what);
        Sleep(wait);
        wait = std::min(2 * wait, c_longestWait);
    }
}

constexpr std::wstring_view c_mark = L"\\\\?\\"; // before a path in full, which may then be long

// The form of a path that all functions take.
std::wstring WithoutMark(std::wstring path)
{
    constexpr std::wstring_view c_server = L"\\\\?\\UNC\\";
    if (path.starts_with(c_server))
        return path.replace(0, c_server.size(), L"\\\\");
    return path.starts_with(c_mark) ? path.substr(c_mark.size()) : path;
}

bool IsSamePath(const std::wstring& a, const std::wstring& b)
{
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

class CSystemFiles : public CFileSystem
{
public:
    CFile Create(const fs::path& path) override
    {
        const HANDLE handle =
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE)
            Throw(GetLastError(), "cannot create temporary file");
        return ToFile(handle);
    }
    void Write(CFile file, std::string_view bytes) override
    {
        constexpr std::size_t c_most = std::size_t(1) << 20;
        while (!bytes.empty()) {
            DWORD written = 0;
            if (!WriteFile(ToHandle(file), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), c_most)),
                           &written, nullptr))
                Throw(GetLastError(), "cannot write temporary file");
            bytes.remove_prefix(written);
        }
    }
    void Flush(CFile file) override
    {
        if (!FlushFileBuffers(ToHandle(file)))
            Throw(GetLastError(), "cannot write temporary file");
    }
    void Close(CFile file) override
    {
        if (!CloseHandle(ToHandle(file)))
            Throw(GetLastError(), "cannot write temporary file");
    }
    void Replace(const fs::path& from, const fs::path& to) override
    {
        Retry("cannot replace", IsInUse, [&] {
            return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
        });
    }
    void Link(const fs::path& from, const fs::path& to) override
    {
        if (!CreateHardLinkW(to.c_str(), from.c_str(), nullptr))
            Throw(GetLastError(), "cannot link");
    }
    void List(const fs::path& folder, const std::function<void(const fs::path&)>& visit) override
    {
        WIN32_FIND_DATAW entry;
        const HANDLE entries = FindFirstFileW((folder / L"*").c_str(), &entry);
        if (entries == INVALID_HANDLE_VALUE)
            Throw(GetLastError(), "cannot read folder");
        const std::unique_ptr<void, decltype(&FindClose)> closing(entries, &FindClose);
        do {
            visit(entry.cFileName);
        } while (FindNextFileW(entries, &entry));
    }
    // The standard library's own knows drives only.
    fs::path Resolve(const fs::path& path) override
    {
        constexpr DWORD c_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const HANDLE handle =
            CreateFileW(path.c_str(), 0, c_all, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        if (handle == INVALID_HANDLE_VALUE)
            Throw(GetLastError(), "cannot find");
        const std::unique_ptr<void, decltype(&CloseHandle)> closing(handle, &CloseHandle);
        std::wstring name(c_longestPath, L'\0');
        const DWORD length = GetFinalPathNameByHandleW(handle, name.data(), c_longestPath, 0);
        if (length == 0 || length >= c_longestPath)
            Throw(GetLastError(), "cannot find");
        name.resize(length);
        return name;
    }
    // Access is denied to a file that is about to go, and then as long as that takes, and to one in a folder
    // that nobody may write to.
    std::optional<CFile> TryLock(const fs::path& path, std::string_view holder) override
    {
        constexpr int c_mostTries = 3;
        for (int tries = 1;; ++tries) {
            // Of a link that somebody has put there it is the link itself that is opened, and goes.
            const HANDLE handle = CreateFileW(
                path.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
            if (handle != INVALID_HANDLE_VALUE) {
                DWORD written = 0;
                SetEndOfFile(handle);
                WriteFile(handle, holder.data(), static_cast<DWORD>(holder.size()), &written, nullptr);
                return ToFile(handle);
            }
            const DWORD error = GetLastError();
            if (error == ERROR_SHARING_VIOLATION || (IsInUse(error) && fs::exists(path)))
                return std::nullopt;
            if (!IsInUse(error) || tries == c_mostTries)
                Throw(error, "cannot lock");
            Sleep(1);
        }
    }
    // Nobody but the holder has the file open to write to.
    std::optional<std::string> FindHolder(const fs::path& path) override
    {
        constexpr DWORD c_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const auto open = [&path](DWORD share) {
            return CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
        };
        const HANDLE unheld = open(FILE_SHARE_READ);
        if (unheld != INVALID_HANDLE_VALUE)
            CloseHandle(unheld);
        if (unheld != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION)
            return std::nullopt;
        const HANDLE held = open(c_all);
        if (held == INVALID_HANDLE_VALUE)
            return std::nullopt;
        std::array<char, c_longestHolder> text;
        DWORD length = 0;
        ReadFile(held, text.data(), static_cast<DWORD>(text.size()), &length, nullptr);
        CloseHandle(held);
        return std::string(text.data(), length);
    }
    void Unlock(CFile lock, const fs::path&) noexcept override { CloseHandle(ToHandle(lock)); }
    std::uint64_t GetProcess() const noexcept override { return GetCurrentProcessId(); }
};

} // namespace

// Asks where the name leads to, and not whether it is a link, which some systems do not tell.
std::optional<fs::path> ReadLink(const fs::path& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const std::wstring name = path.filename().wstring();
    if (attributes == INVALID_FILE_ATTRIBUTES || name.empty() || name == L"." || name == L"..")
        return std::nullopt;
    try {
        std::wstring found = GetSystemFiles().Resolve(path).wstring();
        std::wstring named =
            GetSystemFiles().Resolve(path.has_parent_path() ? path.parent_path() : L".").wstring();
        if (!named.ends_with(L'\\'))
            named += L'\\';
        if (IsSamePath(found, named + name))
            return std::nullopt;
        return path.native().starts_with(c_mark) ? found : WithoutMark(std::move(found));
    } catch (const std::system_error& error) {
        if (attributes & FILE_ATTRIBUTE_REPARSE_POINT)
            throw std::system_error(error.code(), "cannot follow link");
        return std::nullopt; // its file system tells no paths
    }
}

void CheckWritable(const fs::path& path)
{
    constexpr DWORD c_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const auto isShared = [](DWORD error) {
        return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
    };
    Retry("write-protected or in use", isShared, [&] {
        const HANDLE handle =
            CreateFileW(path.c_str(), GENERIC_WRITE, c_all, nullptr, OPEN_EXISTING, 0, nullptr);
        return handle != INVALID_HANDLE_VALUE && CloseHandle(handle);
    });
}

void RemoveFile(const fs::path& path) noexcept
{
    try {
        Retry("cannot remove", IsInUse, [&] { return DeleteFileW(path.c_str()); });
    } catch (const std::exception&) {
        return;
    }
}

CFileSystem& GetSystemFiles() noexcept
{
    // Never destroyed, as destructors of static objects may still write files; without memory of the heap.
    alignas(CSystemFiles) static std::byte s_place[sizeof(CSystemFiles)];
    static CSystemFiles& files = *new (s_place) CSystemFiles;
    return files;
}

} // namespace CommonUI

#endif
