#pragma once

#include "../export/Export.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace CommonUI::Formats
{

/// The files of a folder and of what lies below it whose names end as those of surfaces do, .sdf, .x3p and
/// .txt in letters of any case, in the order of their paths. Nothing is read: what is in them is found out
/// later. Folders that may not be looked into are left out; one that is not there has no files.
/// @param isLeftOut whether a folder is, with all that it holds; may be empty
/// @throws EReadError for a folder that cannot be read to its end, in a sentence with its path
COMMONUIFORMATS_API std::vector<std::filesystem::path>
FindSurfaceFiles(const std::filesystem::path& folder,
                 const std::function<bool(const std::filesystem::path&)>& isLeftOut = {});

} // namespace CommonUI::Formats
