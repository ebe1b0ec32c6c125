#pragma once

#include "common/Str.h"

#include <new>

namespace CommonUI
{

/// Runs `work`, which returns whether it succeeded; when it ran out of memory, that is the reason why not.
template<class FWork>
bool WithinMemory(CStr& reason, FWork&& work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        reason = u"not enough memory";
        return false;
    }
}

} // namespace CommonUI
