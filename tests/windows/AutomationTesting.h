#pragma once

#include "tests/windows/ReplacedCall.h"
#include "windows/detail/Automation.h"
#include "windows/detail/Com.h"
#include "windows/detail/WinText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>
#include <vector>

namespace CommonUI
{

/// What a screen reader gets, from a system that passes on what it is given.
class CAutomationTest : public testing::Test
{
protected:
    CAutomationTest() { s_focus.clear(); }

    /// What a window provides; null where it leaves that to the system.
    static IRawElementProviderSimple* AskWindow(HWND window)
    {
        const LRESULT answer = SendMessageW(window, WM_GETOBJECT, 0, c_rootObject);
        EXPECT_EQ(answer == 7, s_given != nullptr);
        return std::exchange(s_given, nullptr);
    }
    static FARPROC WINAPI Find(HMODULE, const char* name)
    {
        const auto is = [name](const char* other) { return std::strcmp(name, other) == 0; };
        const auto any = [](auto* function) {
            return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
        };
        return is("UiaReturnRawElementProvider") ? any(&Give)
               : is("UiaClientsAreListening")    ? any(&Listen)
               : is("UiaRaiseAutomationEvent")   ? any(&Raise)
                                                 : nullptr;
    }
    static LRESULT WINAPI Give(HWND, WPARAM, LPARAM, IRawElementProviderSimple* element)
    {
        if (element)
            element->AddRef();
        else
            ++s_ended;
        s_given = element;
        return 7;
    }
    static BOOL WINAPI Listen() { return TRUE; }
    static HRESULT WINAPI Raise(IRawElementProviderSimple* element, EVENTID)
    {
        s_focus.push_back(Read(element, UIA_NamePropertyId));
        return S_OK;
    }
    static CStr Read(IRawElementProviderSimple* element, PROPERTYID property)
    {
        VARIANT value{};
        if (FAILED(element->GetPropertyValue(property, &value)))
            return u"gone";
        const CStr text = value.vt == VT_BSTR   ? FromWide(value.bstrVal)
                          : value.vt == VT_BOOL ? CStr(value.boolVal ? u"yes" : u"no")
                                                : CStr::Format(u"%d", static_cast<int>(value.lVal));
        VariantClear(&value);
        return text;
    }
    template<class TInterface>
    static void Ask(IUnknown* element, CComOwner<TInterface>& result)
    {
        EXPECT_EQ(element->QueryInterface(__uuidof(TInterface), result.ReceiveAny()), S_OK);
    }

    inline static IRawElementProviderSimple* s_given = nullptr;
    inline static std::vector<CStr> s_focus;
    inline static int s_ended = 0; // how often the system was told that the window goes

private:
    const CReplacedCall<FARPROC(WINAPI*)(HMODULE, const char*)> m_find{"GetProcAddress", Find};
};

} // namespace CommonUI
