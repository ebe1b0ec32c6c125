#include "platform/MessageLoop.h"

#include "platform/memory/MemoryMessageLoop.h"

namespace CommonUI
{

constinit CCurrentService<CMessageLoop> CMessageLoop::s_current([]() -> CMessageLoop& {
    return GetConsoleMessageLoop();
});

CMessageLoop::~CMessageLoop() = default;

CMessageLoop& GetMessageLoop()
{
    return CMessageLoop::s_current.Get();
}

} // namespace CommonUI
