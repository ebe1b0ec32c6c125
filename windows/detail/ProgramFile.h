#pragma once

#include <filesystem>

namespace CommonUI
{

/// The file of the running program, however long its path is.
std::filesystem::path GetProgramFile();

} // namespace CommonUI
