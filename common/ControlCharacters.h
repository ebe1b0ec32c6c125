#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace CommonUI
{

/// Whether a code unit is a control character, U+0000 to U+001F or U+007F to U+009F: a terminal obeys them.
constexpr bool IsControl(char16_t unit) noexcept
{
    return unit < u' ' || (unit >= 0x7F && unit <= 0x9F);
}

/// The text with another character in place of each control character.
inline std::u16string ReplaceControls(std::u16string_view text, char16_t by)
{
    std::u16string replaced(text);
    std::ranges::replace_if(replaced, IsControl, by);
    return replaced;
}

} // namespace CommonUI
