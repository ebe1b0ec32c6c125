#include "tests/faults/FailingMalloc.h"

#include <cerrno>

namespace
{

// While it is positive, allocations count it down; the one that makes it 0 fails.
thread_local int t_left = 0;
thread_local bool t_goOn = false; // so that all after that one fail, too
thread_local bool t_hasFailed = false;

} // namespace

#if defined(COMMONUI_TEST_MALLOC)

namespace
{

bool Fails()
{
    if (t_left == 0 || --t_left != 0)
        return false;
    t_hasFailed = true;
    t_left = t_goOn ? 1 : 0;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {
void* __libc_malloc(std::size_t size);                    // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size); // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* memory, std::size_t size);     // NOLINT(bugprone-reserved-identifier)

#pragma GCC visibility push(default)

void* malloc(std::size_t size)
{
    return Fails() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    return Fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    return Fails() ? nullptr : __libc_realloc(memory, size);
}

#pragma GCC visibility pop
}

#endif

namespace Faults
{

CFailingMalloc::CFailingMalloc(int number, CommonUI::EFailing failing)
{
    t_left = number;
    t_goOn = failing == CommonUI::EFailing::Onwards;
    t_hasFailed = false;
}

CFailingMalloc::~CFailingMalloc()
{
    t_left = 0;
}

bool CFailingMalloc::HasFailed() const
{
    return t_hasFailed;
}

} // namespace Faults
