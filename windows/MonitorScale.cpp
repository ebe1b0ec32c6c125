#include "windows/detail/MonitorScale.h"

#include "windows/detail/ProcAddress.h"

namespace CommonUI
{

namespace
{

// Systems before Windows 10 have one resolution for all monitors, and none of the functions for one.
template<class FFunction>
FFunction FindForDpi(const char* name)
{
    return FindFunction<FFunction>(L"user32.dll", name);
}

} // namespace

UINT GetDpi(HWND window)
{
    static const auto get = FindForDpi<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    if (const UINT dpi = get ? get(window) : 0; dpi != 0)
        return dpi;
    HDC__* const screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return static_cast<UINT>(dpi);
}

int ScaleFor(HWND window, int pixels)
{
    return MulDiv(pixels, static_cast<int>(GetDpi(window)), USER_DEFAULT_SCREEN_DPI);
}

HFONT MakeMessageFont(UINT dpi)
{
    static const auto getForDpi =
        FindForDpi<BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!getForDpi || !getForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi))
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

SIZE GetWholeSize(HWND window, SIZE contents)
{
    static const auto adjustForDpi =
        FindForDpi<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
    RECT whole{0, 0, contents.cx, contents.cy};
    if (!adjustForDpi || !adjustForDpi(&whole, style, FALSE, extendedStyle, GetDpi(window)))
        AdjustWindowRectEx(&whole, style, FALSE, extendedStyle);
    return {whole.right - whole.left, whole.bottom - whole.top};
}

} // namespace CommonUI
