#pragma once

#include "windows/detail/Api.h"

#include <objbase.h>

#include <utility>

namespace CommonUI
{

/// The component object model in use on this thread, as long as the object lives.
class CComScope
{
public:
    CComScope()
        : m_result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))
    {
    }
    ~CComScope()
    {
        if (SUCCEEDED(m_result))
            CoUninitialize();
    }
    CComScope(const CComScope&) = delete;
    CComScope& operator=(const CComScope&) = delete;

private:
    HRESULT m_result; // a failure where the application has chosen another way, which does as well
};

/// Releases what it points to.
template<class TInterface>
class CComOwner
{
public:
    CComOwner() = default;
    ~CComOwner()
    {
        if (m_object)
            m_object->Release();
    }
    CComOwner(const CComOwner&) = delete;
    CComOwner& operator=(const CComOwner&) = delete;

    TInterface* operator->() const noexcept { return m_object; }
    TInterface* Get() const noexcept { return m_object; }
    /// Where a function puts what it gives; once.
    TInterface** Receive() noexcept { return &m_object; }
    void** ReceiveAny() noexcept { return reinterpret_cast<void**>(&m_object); }

private:
    TInterface* m_object = nullptr;
};

} // namespace CommonUI
