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

/// A callable with arguments of the types TArgs and a result of type TResult. Arguments pass as declared: a
/// value by value, a reference as a reference.
template<class TResult, class... TArgs>
class CClosureBase
{
public:
    /// Calls what is bound; what it throws reaches the caller.
    virtual TResult Invoke(TArgs... args) = 0;
    virtual ~CClosureBase() = default;
    CClosureBase(const CClosureBase&) = delete;
    CClosureBase& operator=(const CClosureBase&) = delete;

protected:
    CClosureBase() = default;
};

/// A callable without arguments.
template<class TResult>
using CClosureBase0 = CClosureBase<TResult>;
/// A callable with one argument.
template<class TResult, class TArg>
using CClosureBase1 = CClosureBase<TResult, TArg>;
/// A callable with two arguments.
template<class TResult, class TArg1, class TArg2>
using CClosureBase2 = CClosureBase<TResult, TArg1, TArg2>;

/// Calls one member function of one object. The object is not owned and must live whenever it is called.
template<class TObject, class TResult, class... TArgs>
class CMethodClosure : public CClosureBase<TResult, TArgs...>
{
public:
    /// A member function that can be bound.
    using FMethod = TResult (TObject::*)(TArgs...);

    /// @param object not owned
    CMethodClosure(TObject& object, FMethod method) noexcept
        : m_object(&object)
        , m_method(method)
    {
    }
    TResult Invoke(TArgs... args) override { return (m_object->*m_method)(std::forward<TArgs>(args)...); }

private:
    TObject* m_object;
    FMethod m_method;
};

/// A bound member function without arguments.
template<class TResult, class TObject>
using CMethodClosure0 = CMethodClosure<TObject, TResult>;
/// A bound member function with one argument.
template<class TResult, class TArg, class TObject>
using CMethodClosure1 = CMethodClosure<TObject, TResult, TArg>;
/// A bound member function with two arguments.
template<class TResult, class TArg1, class TArg2, class TObject>
using CMethodClosure2 = CMethodClosure<TObject, TResult, TArg1, TArg2>;

/// A closure for a member function, which may be one of a base class of the object.
template<class TObject, class TResult, class... TArgs>
std::shared_ptr<CClosureBase<TResult, TArgs...>> MakeClosure(std::type_identity_t<TObject>& object,
                                                             TResult (TObject::*method)(TArgs...))
{
    return std::make_shared<CMethodClosure<TObject, TResult, TArgs...>>(object, method);
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
    template<class TResult, class... TArgs>
    void Set(std::shared_ptr<CClosureBase<TResult, TArgs...>> closure,
             CClosureConnection* connection = nullptr)
    {
        Reset();
        m_closure = std::move(closure);
        m_connection = connection;
    }
    /// Drops the closure and tells the record that it is no longer connected.
    void Reset() noexcept;
    /// Tells the record that it is no longer connected, but keeps the closure, which may be in execution.
    void Disconnect() noexcept;
    /// Whether a subscriber waits to hear that the closure is gone; without a record nobody does.
    bool IsConnected() const noexcept { return m_connection != nullptr; }

    /// The closure, or null. TResult and TArgs must be those of the closure that was set.
    template<class TResult, class... TArgs>
    CClosureBase<TResult, TArgs...>* Get() const noexcept
    {
        return static_cast<CClosureBase<TResult, TArgs...>*>(m_closure.get());
    }
    /// As Get, but the closure lives at least as long as the result: for calls that may reset the slot.
    template<class TResult, class... TArgs>
    std::shared_ptr<CClosureBase<TResult, TArgs...>> Share() const noexcept
    {
        return std::static_pointer_cast<CClosureBase<TResult, TArgs...>>(m_closure);
    }

private:
    std::shared_ptr<void> m_closure;
    CClosureConnection* m_connection = nullptr;
};

} // namespace CommonUI
