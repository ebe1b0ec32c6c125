#pragma once

#include <string_view>

namespace CommonUI
{

/// Whether a name fits a mask, without regard to case: `*` is any text, `?` any character, and "*.*" fits
/// every name.
bool MatchesMask(std::u16string_view name, std::u16string_view mask) noexcept;

} // namespace CommonUI
