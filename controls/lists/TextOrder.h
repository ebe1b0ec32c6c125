#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <compare>
#include <string_view>

/// @file
/// How people expect texts to be sorted and found, the same on every system and in every locale.

namespace CommonUI
{

/// Whether two texts differ at most in the case of letters.
COMMONUI_API bool IsSameFolded(std::u16string_view one, std::u16string_view other);

/// Compares as people count: without regard to case, and runs of digits as numbers, so that "scan 9" stands
/// before "Scan 10". What is equal that way is told apart by code units, so that the order is total.
COMMONUI_API std::strong_ordering CompareNatural(std::u16string_view one, std::u16string_view other);

} // namespace CommonUI
