#pragma once

#include <string>
#include <string_view>

namespace CommonUI
{

/// A text by whose order names stand as a user expects them: without regard to case, numbers by value.
std::u16string GetSortKey(std::u16string_view name);

} // namespace CommonUI
