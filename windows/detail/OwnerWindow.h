#pragma once

#include "windows/detail/Api.h"

namespace CommonUI
{

/// The window that a dialog of the library lies over: the one the user works in, or the first that the thread
/// shows. Null if it shows none.
HWND GetOwnerWindow();

} // namespace CommonUI
