#include "windows/services/WinThreadService.h"

#include "windows/detail/Api.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

int ToNearest(int priority)
{
    constexpr int c_middle = (THREAD_PRIORITY_TIME_CRITICAL + THREAD_PRIORITY_HIGHEST) / 2;
    if (priority > c_middle)
        return THREAD_PRIORITY_TIME_CRITICAL;
    if (priority < -c_middle)
        return THREAD_PRIORITY_IDLE;
    return std::clamp(priority, THREAD_PRIORITY_LOWEST, THREAD_PRIORITY_HIGHEST);
}

} // namespace

CWinThreadService::~CWinThreadService() = default;

bool CWinThreadService::SetPriority(int priority)
{
    return SetThreadPriority(GetCurrentThread(), ToNearest(priority)) != 0;
}

} // namespace CommonUI
