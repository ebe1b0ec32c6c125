#include "windows/detail/MessageWindow.h"

namespace CommonUI
{

CMessageWindow::CMessageWindow(EKind kind)
    : CControlWindow(kind == EKind::MessageOnly ? HWND_MESSAGE : nullptr, 0, {}, WS_POPUP)
{
}

} // namespace CommonUI
