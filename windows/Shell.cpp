#include "windows/detail/Shell.h"

#include "windows/detail/Api.h"
#include "windows/detail/Com.h"

#include <shellapi.h>

namespace CommonUI
{

bool OpenByShell(const std::wstring& target, const std::wstring& parameters)
{
    const CComScope com; // which some programs are opened by
    SHELLEXECUTEINFOW what{};
    what.cbSize = sizeof what;
    what.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    what.lpFile = target.c_str();
    what.lpParameters = parameters.c_str();
    what.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&what) != 0;
}

} // namespace CommonUI
