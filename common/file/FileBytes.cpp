#include "common/file/FileBytes.h"

#include "common/file/detail/FileErrors.h"
#include "common/file/detail/FilePath.h"
#include "common/file/FileReplacement.h"

#include <cstdint>
#include <fstream>
#include <ios>
#include <limits>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& path, std::size_t maximum)
{
    const fs::file_status status = fs::status(path);
    if (!fs::exists(status))
        Refuse("cannot open file", std::errc::no_such_file_or_directory);
    if (fs::is_directory(status))
        Refuse("cannot read", std::errc::is_a_directory);
    if (!fs::is_regular_file(status))
        Refuse("not a regular file", std::errc::invalid_argument);
    std::filebuf file;
    OpenStream(file, path, std::ios::in, "cannot open file");
    const auto size = static_cast<std::streamoff>(file.pubseekoff(0, std::ios::end));
    if (size < 0)
        ThrowStreamError("cannot read file");
    constexpr std::streamoff c_mostAtOnce = std::numeric_limits<std::streamsize>::max();
    if (static_cast<std::uintmax_t>(size) > maximum || size > c_mostAtOnce)
        Refuse("cannot read", std::errc::file_too_large);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.pubseekpos(0);
    if (file.sgetn(bytes.data(), static_cast<std::streamsize>(size)) != size)
        ThrowStreamError("cannot read file");
    return bytes;
}

} // namespace

bool ReadFileBytes(const CStr& fileName, std::string& bytes, std::size_t maximum, CStr& reason)
{
    bytes.clear();
    return TryFile(reason, [&] { bytes = ReadAll(ToFilePath(fileName), maximum); });
}

bool FileExists(const CStr& fileName)
{
    CStr ignored;
    bool exists = true;
    TryFile(ignored, [&] { exists = fs::exists(fs::symlink_status(ToFilePath(fileName))); });
    return exists;
}

bool ReplaceFileBytes(const CStr& fileName, std::string_view bytes, CStr& reason)
{
    fs::path path;
    return TryFile(reason, [&] { path = ToFilePath(fileName); }) && ReplacePathBytes(path, bytes, reason);
}

bool ReplacePathBytes(const fs::path& path, std::string_view bytes, CStr& reason)
{
    CFileReplacement file;
    return file.OpenPath(path, reason) && file.Write(bytes, reason) && file.Replace(reason);
}

} // namespace CommonUI
