#pragma once

#include "../../export/Export.h"
#include "../Str.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace CommonUI
{

/// Reads a whole regular file. Returns false with a reason when there is none, it cannot be read, or it is
/// larger than `maximum` bytes; `bytes` is then empty. A name with a character U+0000 is the name of no file.
COMMONDLL_API bool ReadFileBytes(const CStr& fileName, std::string& bytes, std::size_t maximum, CStr& reason);

/// Whether something has the name, also what cannot be looked at.
COMMONDLL_API bool FileExists(const CStr& fileName);

/// Gives a file a new content so that a reader, or a crash of the process, finds the old content or the new
/// one, never a part: the bytes go to a temporary file in the same folder, which then takes the file's place
/// with the file's permissions; it belongs to who writes it. A symbolic link stays, the file that it leads to
/// is replaced; other hard links keep the old content. Returns false with a reason, the file untouched and
/// the temporary removed, when that fails; what is no regular file, or not to be written, is not replaced.
///
/// The temporary's name holds the file's: "~name.0123456789abcdef.tmp". What a process that was killed has
/// left of a file goes with a later success, if it is older than a minute; a process looks for it once a
/// minute.
COMMONDLL_API bool ReplaceFileBytes(const CStr& fileName, std::string_view bytes, CStr& reason);

/// Likewise, by a path, which may have bytes that are no characters.
COMMONDLL_API bool ReplacePathBytes(const std::filesystem::path& path, std::string_view bytes, CStr& reason);

} // namespace CommonUI
