#include "common/FileBytes.h"

#include "common/PathText.h"

#include <cerrno>
#include <charconv>
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
template<class TWork>
bool Try(CStr& reason, TWork&& work)
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
    constexpr int mostLinks = 40;
    for (int i = 0; fs::is_symlink(fs::symlink_status(path)); ++i) {
        if (i == mostLinks)
            Refuse("cannot follow link", std::errc::too_many_symbolic_link_levels);
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

// A file of its own beside the target; it is removed unless it has taken the target's place.
class CTemporary
{
public:
    explicit CTemporary(const fs::path& target)
        : m_path(target.parent_path() / MakeName())
    {
        errno = 0;
        m_file.open(m_path, std::ios::binary | std::ios::trunc);
        if (!m_file)
            ThrowStreamError("cannot create temporary file");
    }
    CTemporary(const CTemporary&) = delete;
    CTemporary& operator=(const CTemporary&) = delete;
    ~CTemporary()
    {
        if (m_replaced)
            return;
        m_file.close();
        std::error_code ignored;
        fs::remove(m_path, ignored);
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
        m_replaced = true;
    }

private:
    static std::string MakeName()
    {
        std::random_device random;
        const std::uint64_t number = (std::uint64_t(random()) << 32) | random();
        char digits[16];
        return std::string("~").append(digits, std::to_chars(digits, std::end(digits), number, 16).ptr) +
               ".tmp";
    }

    fs::path m_path;
    std::ofstream m_file;
    bool m_replaced = false;
};

void ReplaceAll(const fs::path& path, std::string_view bytes)
{
    const fs::path target = FollowLinks(path);
    const fs::file_status status = fs::status(target);
    if (fs::is_directory(status))
        Refuse("cannot replace", std::errc::is_a_directory);
    if (fs::exists(status) && !fs::is_regular_file(status))
        Refuse("not a regular file", std::errc::invalid_argument);
    constexpr fs::perms write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (fs::exists(status) && (status.permissions() & write) == fs::perms::none)
        Refuse("write-protected", std::errc::permission_denied);

    CTemporary temporary(target);
    // Before the content arrives: nobody may read of it what the file itself would not show.
    if (fs::exists(status))
        temporary.SetPermissions(status.permissions());
    temporary.Write(bytes);
    temporary.Replace(target);
}

} // namespace

bool ReadFileBytes(const CStr& fileName, std::string& bytes, std::size_t maximum, CStr& reason)
{
    bytes.clear();
    return Try(reason, [&] { bytes = ReadAll(ToFilePath(fileName), maximum); });
}

bool ReplaceFileBytes(const CStr& fileName, std::string_view bytes, CStr& reason)
{
    return Try(reason, [&] { ReplaceAll(ToFilePath(fileName), bytes); });
}

} // namespace CommonUI
