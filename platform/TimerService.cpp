#include "platform/TimerService.h"

#include "platform/ConsoleTimerService.h"

#include <chrono>

namespace CommonUI
{

constinit CCurrentService<CTimerService> CTimerService::s_current([]() -> CTimerService& {
    return GetConsoleTimerService();
});

CTimerService::~CTimerService() = default;

std::uint64_t CTimerService::GetTime() const
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

CTimerService& GetTimerService()
{
    return CTimerService::s_current.Get();
}

} // namespace CommonUI
