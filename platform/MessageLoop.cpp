#include "platform/MessageLoop.h"

#include "platform/MemoryMessageLoop.h"

#include <utility>

namespace CommonUI
{

namespace
{

CMessageLoop* s_loop = nullptr;

} // namespace

CMessageLoop::~CMessageLoop() = default;

CMessageLoop& GetMessageLoop()
{
    return s_loop ? *s_loop : GetConsoleMessageLoop();
}

CMessageLoop* SetMessageLoop(CMessageLoop* loop)
{
    return std::exchange(s_loop, loop);
}

} // namespace CommonUI
