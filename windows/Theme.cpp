#include "windows/detail/Theme.h"

namespace CommonUI
{

std::optional<DWORD> ReadUserNumber(const wchar_t* key, const wchar_t* name)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    if (RegGetValueW(HKEY_CURRENT_USER, key, name, RRF_RT_REG_DWORD, nullptr, &number, &size) !=
        ERROR_SUCCESS)
        return std::nullopt;
    return number;
}

bool IsHighContrast()
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

bool WantsDarkPrograms()
{
    return !IsHighContrast() &&
           ReadUserNumber(L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                          L"AppsUseLightTheme") == 0U;
}

} // namespace CommonUI
