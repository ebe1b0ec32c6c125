#include "common/Version.h"

namespace CommonUI
{

CStr GetVersion()
{
    return CStr::FromAscii(COMMONUI_VERSION);
}

} // namespace CommonUI
