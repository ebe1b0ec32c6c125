#include "platform/Terminal.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace CommonUI
{

bool IsErrorStreamTerminal()
{
    constexpr int c_errorStream = 2;
#if defined(_WIN32)
    return _isatty(c_errorStream) != 0;
#else
    return isatty(c_errorStream) != 0;
#endif
}

} // namespace CommonUI
