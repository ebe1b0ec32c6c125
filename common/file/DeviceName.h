#pragma once

#include "../../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// Whether Windows takes the last part of a path for a device such as "NUL" or "com1.txt", whatever extension
/// it has and in whatever folder it is named. A file of that name is written to the device, not to the disk.
COMMONDLL_API bool IsDeviceName(std::u16string_view name) noexcept;

} // namespace CommonUI
