#pragma once

#include "common/file/FileSystem.h"

#include <cstddef>
#include <filesystem>
#include <optional>

namespace CommonUI
{

/// No more is read of what the holder of a lock says.
inline constexpr std::size_t c_longestHolder = 100;

/// The files of the system that the process runs on.
CFileSystem& GetSystemFiles() noexcept;

/// Where the link leads to that a path names, perhaps to a further one; nothing where it names none. Throws
/// where that cannot be found out.
std::optional<std::filesystem::path> ReadLink(const std::filesystem::path& path);

/// Throws unless this process may write to the file, which only trying tells. The file stays as it is.
void CheckWritable(const std::filesystem::path& path);

/// Removes a file, if that can be.
void RemoveFile(const std::filesystem::path& path) noexcept;

} // namespace CommonUI
