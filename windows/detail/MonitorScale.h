#pragma once

#include "windows/detail/Api.h"

namespace CommonUI
{

/// The pixels of an inch on the monitor that a window is on, as far as the process sees its own pixels.
UINT GetDpi(HWND window);
/// Pixels of the monitor that the window is on, for those of a monitor with 96 in an inch.
int ScaleFor(HWND window, int pixels);
/// The font of the system's messages on a monitor. The caller deletes it.
HFONT MakeMessageFont(UINT dpi);
/// The size of a window with its frame and title, for that of its contents, on the monitor that it is on.
SIZE GetWholeSize(HWND window, SIZE contents);

} // namespace CommonUI
