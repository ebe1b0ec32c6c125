#include "windows/dialogs/WinDarkTitle.h"

#include "windows/detail/ControlWindow.h"
#include "windows/detail/ProcAddress.h"
#include "windows/detail/Theme.h"

namespace CommonUI
{

namespace
{

using FSetAttribute = HRESULT(WINAPI*)(HWND, DWORD, const void*, DWORD);

void SetDark(HWND window, BOOL isDark)
{
    constexpr DWORD c_dark = 20, c_darkBefore2004 = 19;
    static const HINSTANCE__* const library =
        LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32); // which stays
    const auto set = library ? FindFunction<FSetAttribute>(L"dwmapi.dll", "DwmSetWindowAttribute") : nullptr;
    if (set && FAILED(set(window, c_dark, &isDark, sizeof isDark)))
        set(window, c_darkBefore2004, &isDark, sizeof isDark);
}

} // namespace

class CWinDarkTitle::CTitle final : public CSubclass
{
public:
    explicit CTitle(HWND window)
        : CSubclass(window)
    {
        SetDark(window, WantsDarkPrograms());
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        if (message == WM_SETTINGCHANGE || message == WM_THEMECHANGED)
            SetDark(GetHandle(), WantsDarkPrograms());
        return PassOn(message, wide, longer);
    }
};

CWinDarkTitle::CWinDarkTitle(HWND__* window)
    : m_title(std::make_unique<CTitle>(window))
{
}

CWinDarkTitle::~CWinDarkTitle() = default;

} // namespace CommonUI
