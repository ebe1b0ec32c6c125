#include "windows/detail/Automation.h"

#include "windows/detail/WinText.h"

namespace CommonUI
{

namespace
{

using FGive = LRESULT(WINAPI*)(HWND, WPARAM, LPARAM, IRawElementProviderSimple*);

FGive FindGive()
{
    return FindAutomation<FGive>("UiaReturnRawElementProvider");
}

} // namespace

bool LoadAutomation()
{
    static const HINSTANCE__* const library =
        LoadLibraryExW(c_automationLibrary, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return library;
}

LRESULT GiveProvider(HWND window, WPARAM wide, LPARAM longer, IRawElementProviderSimple* provider)
{
    const FGive give = FindGive();
    return give ? give(window, wide, longer, provider) : 0;
}

void EndProviders(HWND window)
{
    GiveProvider(window, 0, 0, nullptr);
}

HRESULT GetHostProvider(HWND window, IRawElementProviderSimple** result)
{
    *result = nullptr;
    const auto host =
        FindAutomation<HRESULT(WINAPI*)(HWND, IRawElementProviderSimple**)>("UiaHostProviderFromHwnd");
    return host && window ? host(window, result) : c_elementGone;
}

VARIANT ToVariant(bool value)
{
    VARIANT result{};
    result.vt = VT_BOOL;
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
}

VARIANT ToVariant(long value)
{
    VARIANT result{};
    result.vt = VT_I4;
    result.lVal = value;
    return result;
}

VARIANT ToVariant(const CStr& value)
{
    VARIANT result{};
    result.vt = VT_BSTR;
    result.bstrVal = SysAllocString(ToWide(value).c_str());
    return result;
}

} // namespace CommonUI
