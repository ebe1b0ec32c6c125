#pragma once

#include "Closure.h"

#include <cstddef>

/// @file
/// Multicast lists: an event that any number of objects subscribe to.
///
/// What a call guarantees, whatever the subscribers do in it:
/// - Subscribers are called in the order of subscription, each at most once.
/// - Any subscriber may unsubscribe or be destroyed, the one being called included. Who is gone is not
///   called.
/// - Who subscribes during a call is first called by the next call; a call made inside another one is a next
///   call. Who unsubscribes and subscribes again is new.
/// - The list itself may be destroyed. Every call of it then ends after the subscriber it is at.
/// - An exception of a subscriber ends the call and reaches the caller. List and subscriptions are as the
///   subscribers left them; those not reached yet are not called.
/// - A call takes no lock and allocates nothing. Subscribing and unsubscribing take the same time however
///   many subscribers there are.
///
/// Lists, records and subscribers belong to the user-interface thread. None of them can be copied or moved.

// GCC 12 does not see that a call takes its address out of the list again when it ends.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif

namespace CommonUI
{

class CMultiClosureBase;

/// One subscription: a slot in the chain of its list. What the slot calls lies behind it in the same memory.
struct SClosureEntry {
    SClosureEntry() = default;
    virtual ~SClosureEntry() = default;
    SClosureEntry(const SClosureEntry&) = delete;
    SClosureEntry& operator=(const SClosureEntry&) = delete;

    CCallbackSlot slot;                ///< what is called, and who waits to hear of its end
    SClosureEntry* previous = nullptr; ///< null for the first one
    SClosureEntry* next = nullptr;     ///< null for the last one
};

/// The subscriber's side of a subscription, a member of the subscribing object. It serves a list of any
/// signature and one list at a time; it unsubscribes when it is destroyed, and it may outlive the list.
class COMMONUI_API CClosureConnection
{
public:
    CClosureConnection() = default;
    ~CClosureConnection() { Disconnect(); }
    CClosureConnection(const CClosureConnection&) = delete;
    CClosureConnection& operator=(const CClosureConnection&) = delete;

    /// Whether it stands for a subscription: the list is there, and has not dropped it.
    bool IsConnected() const noexcept { return m_list != nullptr; }
    /// Unsubscribes; harmless when not connected.
    void Disconnect() noexcept;

private:
    friend class CCallbackSlot;
    friend class CMultiClosureBase;

    CMultiClosureBase* m_list = nullptr;
    SClosureEntry* m_entry = nullptr;
};

/// What lists of all signatures share: the chain of subscriptions.
class COMMONUI_API CMultiClosureBase
{
public:
    CMultiClosureBase(const CMultiClosureBase&) = delete;
    CMultiClosureBase& operator=(const CMultiClosureBase&) = delete;

    /// How many are subscribed.
    std::size_t GetCount() const noexcept { return m_count; }
    /// Ends the subscription of the record. A record that is not connected to this list is left alone.
    void Unsubscribe(CClosureConnection& connection) noexcept;

protected:
    /// A call in progress. The entry it is at stays in the chain until the call leaves it, even when its
    /// subscriber or the list is gone; every other entry goes at once.
    class COMMONUI_API CCall
    {
    public:
        /// Calls those who are subscribed now. @param list not owned; it may go during the call
        explicit CCall(const CMultiClosureBase& list) noexcept
            : m_list(&list)
            , m_outer(list.m_calls)
            , m_current(list.m_first)
            , m_last(list.m_last)
        {
            list.m_calls = this;
        }
        ~CCall()
        {
            if (m_list)
                m_list->m_calls = m_outer;
            if (m_current && !m_current->slot.IsConnected())
                Release(m_current);
        }
        CCall(const CCall&) = delete;
        CCall& operator=(const CCall&) = delete;

        /// The first entry, or null.
        SClosureEntry* GetFirst() const noexcept { return m_current; }
        /// Leaves the entry for the one after it; null when the call is over.
        SClosureEntry* StepFrom(SClosureEntry* entry) noexcept
        {
            m_current = entry == m_last ? nullptr : entry->next;
            SClosureEntry* const next = m_current;
            if (!entry->slot.IsConnected())
                Release(entry);
            return next;
        }

    private:
        friend class CMultiClosureBase;

        bool IsAt(const SClosureEntry* entry) const noexcept;
        void Release(SClosureEntry* entry) noexcept;

        const CMultiClosureBase* m_list; // null when it has been destroyed
        CCall* m_outer;                  // the call in which this one was made
        SClosureEntry* m_current;        // null when the call is over
        SClosureEntry* m_last;           // the last entry to call
    };

    CMultiClosureBase() = default;
    ~CMultiClosureBase();
    /// Connects the record, which the entry's slot names already, after it has been disconnected from where
    /// it was.
    void Append(std::unique_ptr<SClosureEntry> entry, CClosureConnection& connection) noexcept;

private:
    bool IsInCall(const SClosureEntry* entry) const noexcept;
    void Unlink(SClosureEntry* entry) const noexcept;

    // Mutable for calls of a constant list: they free an entry whose subscriber is gone when they leave it.
    mutable SClosureEntry* m_first = nullptr;
    mutable SClosureEntry* m_last = nullptr;
    mutable CCall* m_calls = nullptr; // the innermost call in progress
    std::size_t m_count = 0;
};

/// An event: subscribers with arguments of the types TArgs and a result of type TResult, void or bool.
template<class TResult, class... TArgs>
class CMultiClosure : public CMultiClosureBase
{
    static_assert(std::is_void_v<TResult> || std::is_same_v<TResult, bool>,
                  "what would many other results make together?");

public:
    /// Subscribes a member function of an object. When memory runs out nothing changes.
    /// @param object not owned; destroy or disconnect the record before it
    /// @param connection the subscriber's record; if it is connected already, here or to another list, it is
    ///     disconnected first, so that it never stands for two subscriptions
    template<class TObject>
    void Subscribe(std::type_identity_t<TObject>& object, TResult (TObject::*method)(TArgs...),
                   CClosureConnection& connection)
    {
        using CClosure = CClosureBase<TResult, TArgs...>;
        auto entry = std::make_unique<SEntry<TObject>>(object, method);
        entry->slot.Set(std::shared_ptr<CClosure>(std::shared_ptr<void>(), &entry->closure), &connection);
        Append(std::move(entry), connection);
    }

    /// Calls the subscribers; see the head of this file. Arguments that are values are copied for each.
    /// @return for bool: whether all who were called returned true, and true when nobody was. A false does
    ///     not end the call.
    TResult Invoke(TArgs... args) const
    {
        if constexpr (std::is_void_v<TResult>) {
            ForEachClosure([&](CClosureBase<TResult, TArgs...>& closure) { closure.Invoke(args...); });
        } else {
            bool all = true;
            ForEachClosure([&](CClosureBase<TResult, TArgs...>& closure) { all &= closure.Invoke(args...); });
            return all;
        }
    }

private:
    template<class TObject>
    struct SEntry : SClosureEntry {
        SEntry(TObject& object, TResult (TObject::*method)(TArgs...))
            : closure(object, method)
        {
        }

        CMethodClosure<TObject, TResult, TArgs...> closure;
    };

    // May outlive the list, so it touches nothing of it after the first subscriber.
    template<class FVisit>
    void ForEachClosure(FVisit visit) const
    {
        CCall call(*this);
        for (SClosureEntry* entry = call.GetFirst(); entry; entry = call.StepFrom(entry)) {
            if (entry->slot.IsConnected())
                visit(*entry->slot.Get<TResult, TArgs...>());
        }
    }
};

/// An event without arguments.
template<class TResult>
using CMultiClosure0 = CMultiClosure<TResult>;
/// An event with one argument.
template<class TResult, class TArg>
using CMultiClosure1 = CMultiClosure<TResult, TArg>;
/// An event with two arguments.
template<class TResult, class TArg1, class TArg2>
using CMultiClosure2 = CMultiClosure<TResult, TArg1, TArg2>;

} // namespace CommonUI

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif
