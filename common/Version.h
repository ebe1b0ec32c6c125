#pragma once

#include "../export/Export.h"
#include "Str.h"

namespace CommonUI
{

/// The version of the libraries, such as "0.1.0".
COMMONDLL_API CStr GetVersion();

} // namespace CommonUI
