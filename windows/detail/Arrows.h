#pragma once

#include "windows/detail/Api.h"

namespace CommonUI
{

/// The two arrows of the system, without a size yet, which tell the parent of steps by UDN_DELTAPOS. The
/// number that is stepped is not theirs.
HWND MakeArrows(HWND parent);

} // namespace CommonUI
