#include "windows/detail/Arrows.h"

#include "windows/detail/ControlWindow.h"

#include <commctrl.h>

namespace CommonUI
{

HWND MakeArrows(HWND parent)
{
    const INITCOMMONCONTROLSEX used{sizeof used, ICC_UPDOWN_CLASS};
    InitCommonControlsEx(&used);
    HWND__* const arrows = CreateWindowExW(0, UPDOWN_CLASSW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent,
                                           nullptr, GetModule(), nullptr);
    // Around a position that is nobody's.
    SendMessageW(arrows, UDM_SETRANGE32, static_cast<WPARAM>(-1000), 1000);
    UDACCEL always{0, 1};
    SendMessageW(arrows, UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&always));
    return arrows;
}

} // namespace CommonUI
