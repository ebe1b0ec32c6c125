#include "windows/services/WinScreenService.h"

#include "windows/detail/Api.h"

namespace CommonUI
{

namespace
{

SRect ToRect(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// How many pixels the device has for each of the process, in percent.
int GetScale(const MONITORINFOEXW& monitor)
{
    DEVMODEW mode{};
    mode.dmSize = sizeof mode;
    const int width = monitor.rcMonitor.right - monitor.rcMonitor.left;
    if (width <= 0 || !EnumDisplaySettingsW(monitor.szDevice, ENUM_CURRENT_SETTINGS, &mode))
        return 100;
    return (static_cast<int>(mode.dmPelsWidth) * 100 + width / 2) / width;
}

BOOL CALLBACK AddScreen(HMONITOR handle, HDC, RECT*, LPARAM result)
{
    auto& screens = *reinterpret_cast<std::vector<SScreen>*>(result);
    MONITORINFOEXW monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(handle, &monitor))
        return TRUE;
    const bool isMain = (monitor.dwFlags & MONITORINFOF_PRIMARY) != 0;
    screens.insert(isMain ? screens.begin() : screens.end(),
                   {ToRect(monitor.rcMonitor), ToRect(monitor.rcWork), GetScale(monitor)});
    return TRUE;
}

} // namespace

CWinScreenService::~CWinScreenService() = default;

std::vector<SScreen> CWinScreenService::GetScreens() const
{
    std::vector<SScreen> screens;
    EnumDisplayMonitors(nullptr, nullptr, AddScreen, reinterpret_cast<LPARAM>(&screens));
    return screens;
}

} // namespace CommonUI
