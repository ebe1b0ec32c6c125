#pragma once

#include "../export/Export.h"

#include <filesystem>
#include <string>

namespace CommonUI::Formats
{

/// The SHA-256 of a file's bytes in small hexadecimal digits, by which everybody knows the file again. The
/// file is read piece by piece. Empty where the library is built without what computes it, see HasX3p.
/// @throws EReadError for a file that cannot be read
COMMONUIFORMATS_API std::string ComputeSha256(const std::filesystem::path& path);

} // namespace CommonUI::Formats
