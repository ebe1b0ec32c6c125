#include "common/Version.h"

namespace CommonUI
{

CStr GetVersion()
{
    return CStr::Format(u"%d.%d.%d", COMMONUI_VERSION_MAJOR, COMMONUI_VERSION_MINOR, COMMONUI_VERSION_PATCH);
}

int GetVersionNumber()
{
    return COMMONUI_VERSION;
}

} // namespace CommonUI
