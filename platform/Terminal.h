#pragma once

#include "../export/Export.h"

namespace CommonUI
{

/// Whether somebody looks at the standard error stream: it is a terminal, where a line can be written over,
/// and no file or pipe.
COMMONUI_API bool IsErrorStreamTerminal();

} // namespace CommonUI
