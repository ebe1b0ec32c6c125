#pragma once

#include "../export/Export.h"

#include <memory>
#include <type_traits>
#include <utility>

/// @file
/// Callbacks: a closure binds one member function of one object; a callback slot owns a closure. For
/// publishing an event to many see MultiClosure.h. Everything here runs on the user-interface thread and
/// nothing locks.

namespace CommonUI
{

class CClosureConnection;

/// A callable with arguments of the types A and a result of type R. Arguments pass as declared: a value by
/// value, a reference as a reference.
template<class R, class... A>
class CClosureBase
{
public:
    virtual R Invoke(A... args) = 0;
    virtual ~CClosureBase() = default;
    CClosureBase(const CClosureBase&) = delete;
    CClosureBase& operator=(const CClosureBase&) = delete;

protected:
    CClosureBase() = default;
};

template<class R>
using CClosureBase0 = CClosureBase<R>;
template<class R, class A>
using CClosureBase1 = CClosureBase<R, A>;
template<class R, class A1, class A2>
using CClosureBase2 = CClosureBase<R, A1, A2>;

/// Calls one member function of one object. The object is not owned and must live whenever it is called.
template<class C, class R, class... A>
class CMethodClosure : public CClosureBase<R, A...>
{
public:
    using FMethod = R (C::*)(A...);

    CMethodClosure(C& object, FMethod method) noexcept
        : m_object(&object)
        , m_method(method)
    {
    }
    R Invoke(A... args) override { return (m_object->*m_method)(std::forward<A>(args)...); }

private:
    C* m_object;
    FMethod m_method;
};

template<class R, class C>
using CMethodClosure0 = CMethodClosure<C, R>;
template<class R, class A, class C>
using CMethodClosure1 = CMethodClosure<C, R, A>;
template<class R, class A1, class A2, class C>
using CMethodClosure2 = CMethodClosure<C, R, A1, A2>;

/// A closure for a member function, which may be one of a base class of the object.
template<class C, class R, class... A>
std::shared_ptr<CClosureBase<R, A...>> MakeClosure(std::type_identity_t<C>& object, R (C::*method)(A...))
{
    return std::make_shared<CMethodClosure<C, R, A...>>(object, method);
}

/// A place for one closure of any signature, and for the record of the subscriber who waits to hear that the
/// closure is gone.
class COMMONUI_API CCallbackSlot
{
public:
    CCallbackSlot() = default;
    ~CCallbackSlot() { Reset(); }
    CCallbackSlot(const CCallbackSlot&) = delete;
    CCallbackSlot& operator=(const CCallbackSlot&) = delete;

    /// Takes a closure in place of the one before.
    /// @param connection the subscriber's record, which must live until the slot is reset or the record
    ///     disconnects; null when nobody needs to know
    template<class R, class... A>
    void Set(std::shared_ptr<CClosureBase<R, A...>> closure, CClosureConnection* connection = nullptr)
    {
        Reset();
        m_closure = std::move(closure);
        m_connection = connection;
    }
    /// Drops the closure and tells the record that it is no longer connected.
    void Reset() noexcept;
    /// Tells the record that it is no longer connected, but keeps the closure, which may be in execution.
    void Disconnect() noexcept;
    bool IsConnected() const noexcept { return m_connection != nullptr; }

    /// The closure, or null. R and A must be those of the closure that was set.
    template<class R, class... A>
    CClosureBase<R, A...>* Get() const noexcept
    {
        return static_cast<CClosureBase<R, A...>*>(m_closure.get());
    }
    /// As Get, but the closure lives at least as long as the result: for calls that may reset the slot.
    template<class R, class... A>
    std::shared_ptr<CClosureBase<R, A...>> Share() const noexcept
    {
        return std::static_pointer_cast<CClosureBase<R, A...>>(m_closure);
    }

private:
    std::shared_ptr<void> m_closure;
    CClosureConnection* m_connection = nullptr;
};

} // namespace CommonUI
