#include "controls/Window.h"

namespace CommonUI
{

CWnd::~CWnd()
{
    for (CWatch* watch = m_watches; watch; watch = watch->m_outer)
        watch->m_window = nullptr;
}

} // namespace CommonUI
