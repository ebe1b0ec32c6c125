#pragma once

#include "tests/common/FailingAllocation.h"

#include <cstdlib> // whose library it is

// The sanitizers have a malloc of their own.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define COMMONUI_TEST_MALLOC 1
#endif
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#undef COMMONUI_TEST_MALLOC
#endif
#endif

namespace Faults
{

#if defined(COMMONUI_TEST_MALLOC)
constexpr bool c_canFailMalloc = true;
#else
constexpr bool c_canFailMalloc = false;
#endif

/// As CommonUI::CFailingAllocation, also for what libraries in C take by malloc, calloc and realloc. Nothing
/// fails where the malloc is not that of the program, see c_canFailMalloc.
class CFailingMalloc
{
public:
    explicit CFailingMalloc(int number, CommonUI::EFailing failing = CommonUI::EFailing::Once);
    ~CFailingMalloc();
    CFailingMalloc(const CFailingMalloc&) = delete;
    CFailingMalloc& operator=(const CFailingMalloc&) = delete;

    bool HasFailed() const;
};

} // namespace Faults
