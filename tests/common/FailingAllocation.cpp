#include "tests/common/FailingAllocation.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace
{

// While it is positive, allocations count it down; the one that makes it 0 fails.
thread_local int t_left = 0;
thread_local std::size_t t_bytes = 0;
thread_local std::size_t t_most = SIZE_MAX; // at once

// Null where it fails.
void* Allocate(std::size_t size)
{
    t_bytes += size;
    const bool fails = (t_left > 0 && --t_left == 0) || size > t_most;
    return fails ? nullptr : std::malloc(size);
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
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace CommonUI
{

CFailingAllocation::CFailingAllocation(int number)
{
    t_left = number;
}

CFailingAllocation::~CFailingAllocation()
{
    t_left = 0;
}

bool CFailingAllocation::HasFailed() const
{
    return t_left == 0;
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

} // namespace CommonUI
