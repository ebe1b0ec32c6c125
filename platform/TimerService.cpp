#include "platform/TimerService.h"

#include "platform/ConsoleTimerService.h"

#include <utility>

namespace CommonUI
{

namespace
{

CTimerService* s_service = nullptr;

} // namespace

CTimerService::~CTimerService() = default;

CTimerService& GetTimerService()
{
    return s_service ? *s_service : GetConsoleTimerService();
}

CTimerService* SetTimerService(CTimerService* service)
{
    return std::exchange(s_service, service);
}

} // namespace CommonUI
