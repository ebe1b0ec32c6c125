#pragma once

#include "common/file/FileSystem.h"

#include <cstddef>

namespace CommonUI
{

/// No more is read of what the holder of a lock says.
inline constexpr std::size_t c_longestHolder = 100;

/// The files of the system that the process runs on.
CFileSystem& GetSystemFiles() noexcept;

} // namespace CommonUI
