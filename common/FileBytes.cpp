#include "common/FileBytes.h"

#include "common/PathText.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <ios>
#include <random>
#include <system_error>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const char* what, std::errc reason)
{
    throw std::system_error(std::make_error_code(reason), what);
}

// Throws the reason why a stream failed, as far as the system left it.
[[noreturn]] void ThrowStreamError(const char* what)
{
    const std::error_code left(errno, std::generic_category());
    throw std::system_error(left ? left : std::make_error_code(std::errc::io_error), what);
}

fs::path ToFilePath(const CStr& fileName)
{
    // To the system the name would end there: that of another file.
    if (fileName.Find(u'\0') != CStr::npos)
        Refuse("the name has a character U+0000", std::errc::invalid_argument);
    return ToPath(fileName);
}

// Runs `work` and returns whether it came to its end; else why not.
template<class FWork>
bool Try(CStr& reason, FWork&& work)
{
    try {
        work();
        return true;
    } catch (const fs::filesystem_error& error) {
        // what() has the path too, which the caller knows.
        reason = CStr::FromUtf8(error.code().message());
    } catch (const std::exception& error) {
        reason = CStr::FromUtf8(error.what());
    }
    return false;
}

std::string ReadAll(const fs::path& path, std::size_t maximum)
{
    const fs::file_status status = fs::status(path);
    if (!fs::exists(status))
        Refuse("cannot open file", std::errc::no_such_file_or_directory);
    if (fs::is_directory(status))
        Refuse("cannot read", std::errc::is_a_directory);
    if (!fs::is_regular_file(status))
        Refuse("not a regular file", std::errc::invalid_argument);
    errno = 0;
    std::filebuf file;
    if (!file.open(path, std::ios::in | std::ios::binary))
        ThrowStreamError("cannot open file");
    const auto size = static_cast<std::streamoff>(file.pubseekoff(0, std::ios::end));
    if (size < 0)
        ThrowStreamError("cannot read file");
    if (static_cast<std::uintmax_t>(size) > maximum)
        Refuse("cannot read", std::errc::file_too_large);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.pubseekpos(0);
    if (file.sgetn(bytes.data(), size) != size)
        ThrowStreamError("cannot read file");
    return bytes;
}

// The file that is meant by a path that may be a symbolic link, also one that leads to nothing yet.
fs::path FollowLinks(fs::path path)
{
    constexpr int c_mostLinks = 40;
    for (int i = 0; fs::is_symlink(fs::symlink_status(path)); ++i) {
        if (i == c_mostLinks)
            Refuse("cannot follow link", std::errc::too_many_symbolic_link_levels);
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

constexpr std::string_view c_temporaryEnd = ".tmp";
constexpr std::size_t c_temporaryDigits = 16;

// What the names of all temporaries of a target begin with; with what follows no longer than a name may be.
std::u8string GetTemporaryStart(const fs::path& target)
{
    constexpr std::size_t c_longest = 255 - 2 - c_temporaryDigits - c_temporaryEnd.size();
    std::u8string name = target.filename().u8string();
    if (name.size() > c_longest) {
        std::size_t length = c_longest;
        while ((name[length] & 0xC0) == 0x80) // not within a character
            --length;
        name.resize(length);
    }
    return u8"~" + name + u8".";
}

fs::path MakeTemporaryPath(const fs::path& target)
{
    std::random_device random;
    std::u8string name = GetTemporaryStart(target);
    for (std::size_t i = 0; i < c_temporaryDigits; ++i)
        name += u8"0123456789abcdef"[random() % 16];
    return target.parent_path() / name.append(c_temporaryEnd.begin(), c_temporaryEnd.end());
}

bool IsTemporaryOf(const std::u8string& start, const fs::path& path)
{
    const std::u8string name = path.filename().u8string();
    const std::u8string_view end = std::u8string_view(name).substr(std::min(start.size(), name.size()));
    return name.starts_with(start) && end.size() == c_temporaryDigits + c_temporaryEnd.size() &&
           end.ends_with(u8".tmp") && end.find_first_not_of(u8"0123456789abcdef") == c_temporaryDigits;
}

// Removes what killed processes have left. Not being able to is no fault of the new content.
void RemoveOldTemporaries(const fs::path& target)
{
    constexpr std::chrono::minutes c_leastAge(1);
    try {
        const std::u8string start = GetTemporaryStart(target);
        const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            if (IsTemporaryOf(start, entry.path()) && entry.is_regular_file() &&
                fs::file_time_type::clock::now() - entry.last_write_time() > c_leastAge)
                fs::remove(entry.path());
        }
    } catch (const std::exception&) {
        return;
    }
}

// A file of its own beside the target; it is removed unless it has taken the target's place.
class CTemporary
{
public:
    explicit CTemporary(const fs::path& target)
        : m_path(MakeTemporaryPath(target))
    {
    }
    CTemporary(const CTemporary&) = delete;
    CTemporary& operator=(const CTemporary&) = delete;
    ~CTemporary()
    {
        if (!m_created)
            return;
        m_file.close();
        std::error_code ignored;
        fs::remove(m_path, ignored);
    }

    // Apart from the constructor, so that the file goes, too, when its stream gets no memory.
    void Create()
    {
        errno = 0;
        m_created = true;
        m_file.open(m_path, std::ios::binary | std::ios::trunc);
        if (!m_file)
            ThrowStreamError("cannot create temporary file");
    }
    void Write(std::string_view bytes)
    {
        errno = 0;
        m_file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        m_file.close();
        if (!m_file)
            ThrowStreamError("cannot write temporary file");
    }
    void SetPermissions(fs::perms permissions) { fs::permissions(m_path, permissions); }
    void Replace(const fs::path& target)
    {
        fs::rename(m_path, target);
        m_created = false;
    }

private:
    fs::path m_path;
    std::ofstream m_file;
    bool m_created = false;
};

// Permission bits do not say who may write: somebody else's file in a shared folder could be replaced, but
// must not be.
void CheckWritable(const fs::path& target)
{
    errno = 0;
    std::filebuf file;
    if (!file.open(target, std::ios::out | std::ios::app | std::ios::binary))
        ThrowStreamError("write-protected");
}

void ReplaceAll(const fs::path& path, std::string_view bytes)
{
    const fs::path target = FollowLinks(path);
    const fs::file_status status = fs::status(target);
    if (fs::is_directory(status))
        Refuse("cannot replace", std::errc::is_a_directory);
    if (fs::exists(status) && !fs::is_regular_file(status))
        Refuse("not a regular file", std::errc::invalid_argument);
    constexpr fs::perms c_write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (fs::exists(status) && (status.permissions() & c_write) == fs::perms::none)
        Refuse("write-protected", std::errc::permission_denied);
    if (fs::exists(status))
        CheckWritable(target);

    CTemporary temporary(target);
    temporary.Create();
    // Before the content arrives: nobody may read of it what the file itself would not show.
    if (fs::exists(status))
        temporary.SetPermissions(status.permissions());
    temporary.Write(bytes);
    temporary.Replace(target);
    RemoveOldTemporaries(target);
}

} // namespace

bool ReadFileBytes(const CStr& fileName, std::string& bytes, std::size_t maximum, CStr& reason)
{
    bytes.clear();
    return Try(reason, [&] { bytes = ReadAll(ToFilePath(fileName), maximum); });
}

bool FileExists(const CStr& fileName)
{
    CStr ignored;
    bool exists = true;
    Try(ignored, [&] { exists = fs::exists(fs::symlink_status(ToFilePath(fileName))); });
    return exists;
}

bool ReplaceFileBytes(const CStr& fileName, std::string_view bytes, CStr& reason)
{
    return Try(reason, [&] { ReplaceAll(ToFilePath(fileName), bytes); });
}

} // namespace CommonUI
