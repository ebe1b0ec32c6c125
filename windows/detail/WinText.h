#pragma once

#include "common/Str.h"

#include <string>
#include <string_view>

namespace CommonUI
{

/// @file
/// Texts as Windows has them: UTF-16 too, of another type.

inline std::wstring ToWide(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

inline CStr FromWide(std::wstring_view text)
{
    return std::u16string(text.begin(), text.end());
}

} // namespace CommonUI
