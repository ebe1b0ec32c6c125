#include "tests/common/FailingAllocation.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace
{

// While it is positive, allocations count it down; the one that makes it 0 fails.
thread_local int t_left = 0;
thread_local bool t_goOn = false; // so that all after that one fail, too
thread_local bool t_hasFailed = false;
thread_local long t_living = 0;
thread_local std::size_t t_bytes = 0;
thread_local std::size_t t_most = SIZE_MAX; // at once

// Null where it fails.
void* Allocate(std::size_t size)
{
    t_bytes += size;
    if (t_left > 0 && --t_left == 0) {
        t_hasFailed = true;
        t_left = t_goOn ? 1 : 0;
        return nullptr;
    }
    void* const memory = size > t_most ? nullptr : std::malloc(size);
    t_living += memory != nullptr ? 1 : 0;
    return memory;
}

void Free(void* memory) noexcept
{
    t_living -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = Allocate(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

// For the algorithms of the standard library that can do without.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}

void operator delete(void* memory) noexcept
{
    Free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    Free(memory);
}

namespace CommonUI
{

CFailingAllocation::CFailingAllocation(int number, EFailing failing)
{
    t_left = number;
    t_goOn = failing == EFailing::Onwards;
    t_hasFailed = false;
}

CFailingAllocation::~CFailingAllocation()
{
    t_left = 0;
}

bool CFailingAllocation::HasFailed() const
{
    return t_hasFailed;
}

CAllocationLimit::CAllocationLimit(std::size_t bytes)
{
    t_most = bytes;
}

CAllocationLimit::~CAllocationLimit()
{
    t_most = SIZE_MAX;
}

CAllocatedBytes::CAllocatedBytes()
    : m_before(t_bytes)
{
}

std::size_t CAllocatedBytes::Get() const
{
    return t_bytes - m_before;
}

long CountLivingAllocations()
{
    return t_living;
}

} // namespace CommonUI
