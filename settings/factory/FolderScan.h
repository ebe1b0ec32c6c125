#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "SimpleTree.h"

#include <functional>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// A folder with the files in it that are looked for.
struct SFoundFolder {
    std::vector<CStr> names{}; ///< that lead to it from the folder that was asked for, which has none
    std::vector<CStr> files{}; ///< paths, in the order of menus; never empty

    friend bool operator==(const SFoundFolder&, const SFoundFolder&) = default;
};

/// Told of a folder. @return false to look no further
using FFolderFound = std::function<bool(SFoundFolder)>;

/// Looks for files whose names fit a mask in a folder and in those below, in the order of menus: what is
/// below a folder comes before its own files. Folders without such files are left out; one that does not
/// exist has none. What cannot be looked into is a warning in the diagnostics. Any thread may call.
/// @param masks as "*.htm|*.html", without regard to case
COMMONUI_API void FindFilesBelow(const CStr& folder, std::u16string_view masks, const FFolderFound& found);

/// Adds a folder that was found to a tree, behind those found before: inner nodes are folders by name, leaves
/// are files by path.
COMMONUI_API void AddFoundFolder(const SFoundFolder& found, CSimpleTree<CStr>& tree);

} // namespace CommonUI
