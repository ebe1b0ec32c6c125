#include "windows/detail/OwnerWindow.h"

namespace CommonUI
{

HWND GetOwnerWindow()
{
    if (HWND__* const active = GetActiveWindow(); active && IsWindowVisible(active))
        return active;
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) CALLBACK -> BOOL {
            const bool isShown = IsWindowVisible(window) && IsWindowEnabled(window);
            if (isShown)
                *reinterpret_cast<HWND*>(result) = window;
            return !isShown;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace CommonUI
