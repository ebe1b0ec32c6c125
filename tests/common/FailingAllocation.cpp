#include "tests/common/FailingAllocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

thread_local int CommonUI::t_allocationsLeft = 0;

void* operator new(std::size_t size)
{
    void* const memory =
        CommonUI::t_allocationsLeft > 0 && --CommonUI::t_allocationsLeft == 0 ? nullptr : std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
