#pragma once

#include "common/Str.h"

#include <filesystem>

namespace CommonUI
{

/// The path of the one file that a name stands for. Throws std::system_error where the system would take it
/// for that of another one, or of none.
std::filesystem::path ToFilePath(const CStr& fileName);

} // namespace CommonUI
