#pragma once

#include <cstddef>
#include <new>

namespace CommonUI
{

enum class EFailing {
    Once,
    Onwards ///< and all that come after
};

/// While it lives, one allocation of its thread fails: the one of that number, counted from 1.
class CFailingAllocation
{
public:
    explicit CFailingAllocation(int number, EFailing failing = EFailing::Once);
    ~CFailingAllocation();
    CFailingAllocation(const CFailingAllocation&) = delete;
    CFailingAllocation& operator=(const CFailingAllocation&) = delete;

    bool HasFailed() const;
};

/// Lets work fail at each of its allocations in turn, one in every round; in the last round none fails:
///
///     for (CEachAllocation each; each.Next();) {
///         ...
///         const bool isDone = each.Try([&] { ... });
class CEachAllocation
{
public:
    explicit CEachAllocation(int step = 1)
        : m_step(step)
    {
    }

    /// Goes to the next round, unless nothing failed in the last work of the one before.
    bool Next()
    {
        m_number += m_number == 0 ? 1 : m_step;
        const bool goesOn = m_number == 1 || m_hasFailed;
        m_hasFailed = false;
        return goesOn;
    }
    /// @return whether the work came to its end.
    template<class FWork>
    bool Try(const FWork& work)
    {
        const CFailingAllocation failing(m_number);
        bool isDone = true;
        try {
            work();
        } catch (const std::bad_alloc&) {
            isDone = false;
        }
        m_hasFailed = failing.HasFailed();
        return isDone;
    }
    /// Whether an allocation of the last work has failed, even if it could do without.
    bool HasFailed() const { return m_hasFailed; }
    int GetNumber() const { return m_number; }

private:
    int m_step;
    int m_number = 0;
    bool m_hasFailed = false;
};

/// While it lives, no allocation of its thread gets more than so many bytes.
class CAllocationLimit
{
public:
    explicit CAllocationLimit(std::size_t bytes);
    ~CAllocationLimit();
    CAllocationLimit(const CAllocationLimit&) = delete;
    CAllocationLimit& operator=(const CAllocationLimit&) = delete;
};

/// How many bytes its thread has allocated since it was made, whether they were given back or not.
class CAllocatedBytes
{
public:
    CAllocatedBytes();

    std::size_t Get() const;

private:
    std::size_t m_before;
};

/// How many allocations of its thread have not been given back, less those that it gave back for others.
long CountLivingAllocations();

} // namespace CommonUI
