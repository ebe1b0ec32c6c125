#include "windows/services/WinServices.h"

namespace CommonUI
{

CWinServices::CWinServices(const CStr& title)
    : m_messageBoxes(title)
{
}

CWinServices::~CWinServices() = default;

} // namespace CommonUI
