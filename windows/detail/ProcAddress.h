#pragma once

#include "windows/detail/Api.h"

namespace CommonUI
{

/// A function that not all systems have, from one of their libraries that is loaded, or null.
template<class FFunction>
FFunction FindFunction(const wchar_t* library, const char* name)
{
    return reinterpret_cast<FFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

} // namespace CommonUI
