#pragma once

#include "../../export/Export.h"
#include "../Str.h"

#include <string_view>

namespace CommonUI
{

/// The name of the file beside `fileName` in which its last whole version is kept: "~name.backup". A symbolic
/// link stands for what it leads to. Empty for what is the name of no file.
COMMONDLL_API CStr GetBackupName(const CStr& fileName);

/// Keeps the content of a file in its backup, for whoever may read the file. Returns false with a reason, and
/// the backup as it was, when that fails.
COMMONDLL_API bool KeepBackupFile(const CStr& fileName, std::string_view content, CStr& reason);

/// Keeps what a file holds under another name in its folder: "name.why", or "name.why-2" and so on, the first
/// that nothing has, or that has the same content already. The file itself stays. Returns false, with a
/// reason and nothing left, when that fails.
/// @param content of the file, which nobody changes meanwhile
/// @param keptAs the name that it is now kept under
COMMONDLL_API bool KeepFile(const CStr& fileName, std::string_view content, const CStr& why, CStr& keptAs,
                            CStr& reason);

} // namespace CommonUI
