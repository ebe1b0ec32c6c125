#pragma once

#include "common/Str.h"
#include "settings/factory/SimpleTree.h"

#include <string_view>

namespace CommonUI
{

/// The files below a folder whose names match a mask: inner nodes are folders by name, leaves are files by
/// path. A folder that does not exist has no files.
CSimpleTree<CStr> FindFilesBelow(const CStr& folder, std::u16string_view masks);

} // namespace CommonUI
