#pragma once

#include "common/file/FileSystem.h"

namespace CommonUI
{

/// The files of the system that the process runs on.
CFileSystem& GetSystemFiles() noexcept;

} // namespace CommonUI
