#pragma once

#include <type_traits>
#include <utility>

namespace CommonUI
{

/// Makes a change of several steps all or nothing: unless the change is committed, the object is again what
/// it was when this was made. Of an object of a derived class, the part that is a `T` is meant.
template<class T>
class CRollback
{
public:
    /// @param object not owned; copied now, and put back at the end unless the change is committed
    explicit CRollback(T& object)
        : m_object(object)
        , m_before(object)
    {
        static_assert(std::is_nothrow_move_assignable_v<T>, "going back needs no memory");
    }
    CRollback(const CRollback&) = delete;
    CRollback& operator=(const CRollback&) = delete;
    ~CRollback()
    {
        if (!m_done)
            m_object = std::move(m_before);
    }

    /// The change stays; nothing is put back.
    void Commit() noexcept { m_done = true; }

private:
    T& m_object;
    T m_before;
    bool m_done = false;
};

} // namespace CommonUI
