#pragma once

#include "common/Str.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace CommonUI
{

/// The file that is meant by a path that may be a symbolic link, also one that leads to nothing yet.
std::filesystem::path FollowLinks(std::filesystem::path path);

/// Whether there is what the name stands for, or cannot be looked at: not where a link leads to nothing.
bool IsThere(const CStr& fileName);

/// What the name of a file begins with that lies beside a target for a while: "~name.".
/// @param endLength of what follows; both together are no longer than a name may be
std::u8string GetCompanionStart(const std::filesystem::path& target, std::size_t endLength);

/// Where the last whole version of a file is kept: "~name.backup" beside it.
std::filesystem::path GetBackupPath(const std::filesystem::path& target);

} // namespace CommonUI
