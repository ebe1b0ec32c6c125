#include "tests/common/FailingAllocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{

// While it is positive, allocations count it down; the one that makes it 0 fails.
thread_local int t_left = 0;
thread_local std::size_t t_bytes = 0;

} // namespace

void* operator new(std::size_t size)
{
    t_bytes += size;
    void* const memory = t_left > 0 && --t_left == 0 ? nullptr : std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

// For the algorithms of the standard library that can do without.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    t_bytes += size;
    return t_left > 0 && --t_left == 0 ? nullptr : std::malloc(size);
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

CAllocatedBytes::CAllocatedBytes()
    : m_before(t_bytes)
{
}

std::size_t CAllocatedBytes::Get() const
{
    return t_bytes - m_before;
}

} // namespace CommonUI
