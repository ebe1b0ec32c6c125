#pragma once

#include <utility>

namespace CommonUI
{

template<class TService>
class CServiceScope;

/// Which service of a type the process uses: the one of a CServiceScope, or the library's own. Each type has
/// one such object, its s_current.
template<class TService>
class CCurrentService
{
public:
    /// Gives the library's own service, which lives until the process ends.
    using FDefault = TService& (*)();

    /// @param getDefault gives the library's own service
    explicit constexpr CCurrentService(FDefault getDefault) noexcept
        : m_getDefault(getDefault)
    {
    }
    CCurrentService(const CCurrentService&) = delete;
    CCurrentService& operator=(const CCurrentService&) = delete;

    /// The service that is used now; it may be another one with the next call.
    TService& Get() const { return m_service ? *m_service : m_getDefault(); }

private:
    friend class CServiceScope<TService>;

    FDefault m_getDefault;
    TService* m_service = nullptr; // not owned; null stands for the default
};

/// Has the process use a service as long as the scope lives, and then again what it used before:
///
///     CMemoryClipboard clipboard;
///     const CServiceScope<CClipboard> scope(clipboard);
///
/// The service stays the caller's and outlives the scope. Scopes of one type end in the reverse order of
/// their making. They are made and end on the user-interface thread while nobody uses the service before or
/// after: no timer of it runs, no worker posts to it.
template<class TService>
class CServiceScope
{
public:
    /// @param service not owned; it must outlive the scope
    explicit CServiceScope(TService& service) noexcept
        : m_before(std::exchange(TService::s_current.m_service, &service))
    {
    }
    ~CServiceScope() { TService::s_current.m_service = m_before; }
    CServiceScope(const CServiceScope&) = delete;
    CServiceScope& operator=(const CServiceScope&) = delete;

private:
    TService* m_before;
};

} // namespace CommonUI
