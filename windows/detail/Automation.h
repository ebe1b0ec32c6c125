#pragma once

#include "common/Str.h"
#include "windows/detail/Api.h"
#include "windows/detail/ProcAddress.h"

// These need the header above.
#include <objbase.h>
#include <oleauto.h>
#include <uiautomationcore.h>

#include <uiautomationclient.h>

#include <atomic>

namespace CommonUI
{

/// @file
/// What providers of UI Automation are made of. Its patterns are declared here, as the compiler's headers
/// have those of elements alone.

constexpr auto c_elementGone = static_cast<HRESULT>(0x80040201L); // which clients know
constexpr int c_appendRuntimeId = 3;                              // what follows is below the window
constexpr LONG c_rootObject = -25;                                // what WM_GETOBJECT asks for

/// The library that is loaded when somebody asks for what it gives, and then stays.
constexpr const wchar_t* c_automationLibrary = L"uiautomationcore.dll";
bool LoadAutomation();
/// A function of it. @return null without UI Automation
template<class FFunction>
FFunction FindAutomation(const char* name)
{
    return LoadAutomation() ? FindFunction<FFunction>(c_automationLibrary, name) : nullptr;
}

/// Answers WM_GETOBJECT. @return 0 without UI Automation
LRESULT GiveProvider(HWND window, WPARAM wide, LPARAM longer, IRawElementProviderSimple* provider);
/// No provider of the window is to be asked any more.
void EndProviders(HWND window);
/// What the system itself provides for a window.
HRESULT GetHostProvider(HWND window, IRawElementProviderSimple** result);

VARIANT ToVariant(bool value);
VARIANT ToVariant(long value);
VARIANT ToVariant(const CStr& value);

// Objects of the component model are destroyed by themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

struct IGridProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetItem(int row, int column, IRawElementProviderSimple** result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RowCount(int* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ColumnCount(int* result) = 0;
};

struct IGridItemProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Row(int* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Column(int* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RowSpan(int* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ColumnSpan(int* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ContainingGrid(IRawElementProviderSimple** result) = 0;
};

struct IRangeValueProvider : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetValue(double value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Value(double* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IsReadOnly(BOOL* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Maximum(double* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Minimum(double* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LargeChange(double* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SmallChange(double* result) = 0;
};

/// An object of the component model, which its users count. It is made with one of them.
template<class TFirst, class... TInterfaces>
class CComObject : public TFirst, public TInterfaces...
{
public:
    CComObject() = default;
    virtual ~CComObject() = default;
    CComObject(const CComObject&) = delete;
    CComObject& operator=(const CComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(const IID& asked, void** result) override
    {
        *result = nullptr;
        if (asked == __uuidof(IUnknown) || asked == __uuidof(TFirst))
            *result = static_cast<TFirst*>(this);
        ((asked == __uuidof(TInterfaces) ? void(*result = static_cast<TInterfaces*>(this)) : void()), ...);
        if (!*result)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_users; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_users;
        if (left == 0)
            delete this;
        return left;
    }

private:
    std::atomic<ULONG> m_users = 1;
};

#pragma GCC diagnostic pop

} // namespace CommonUI

__CRT_UUID_DECL(CommonUI::IGridProvider, 0xb17d6187, 0x0907, 0x464b, 0xa1, 0x68, 0x0e, 0xf1, 0x7a, 0x15, 0x72,
                0xb1)
__CRT_UUID_DECL(CommonUI::IGridItemProvider, 0xd02541f1, 0xfb81, 0x4d64, 0xae, 0x32, 0xf5, 0x20, 0xf8, 0xa6,
                0xdb, 0xd1)
__CRT_UUID_DECL(CommonUI::IRangeValueProvider, 0x36dc7aef, 0x33e6, 0x4691, 0xaf, 0xe1, 0x2b, 0xe7, 0x27, 0x4b,
                0x3d, 0x33)
