#include "platform/TimerService.h"

#include "platform/ConsoleTimerService.h"

#include <chrono>
#include <utility>

namespace CommonUI
{

namespace
{

CTimerService* s_service = nullptr;

} // namespace

CTimerService::~CTimerService() = default;

std::uint64_t CTimerService::GetTime() const
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

CTimerService& GetTimerService()
{
    return s_service ? *s_service : GetConsoleTimerService();
}

CTimerService* SetTimerService(CTimerService* service)
{
    return std::exchange(s_service, service);
}

} // namespace CommonUI
