#pragma once

#include "../export/Export.h"
#include "Str.h"

#include <filesystem>
#include <string_view>

namespace CommonUI
{

/// @file
/// Paths as text, understood alike on every platform: `/`, `\` and `:` all end a folder, so that a path
/// written on one system shows the same name on another.

/// Where the last part of a path begins: behind the last separator, or at 0 where there is none.
constexpr std::size_t GetFileNamePosition(std::u16string_view path) noexcept
{
    const std::size_t separator = path.find_last_of(u"/\\:");
    return separator == std::u16string_view::npos ? 0 : separator + 1;
}

/// The last part of a path, with its extension; empty when the path ends in a separator.
constexpr std::u16string_view GetFileName(std::u16string_view path) noexcept
{
    return path.substr(GetFileNamePosition(path));
}

/// What stands before the last part of a path, with the separator at its end.
constexpr std::u16string_view GetFolder(std::u16string_view path) noexcept
{
    return path.substr(0, GetFileNamePosition(path));
}

/// The path that a text names. Throws what the standard library throws where the system has no form of it.
inline std::filesystem::path ToPath(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

/// The path as text; false when no text leads to it, as the name has bytes that are no characters. The text
/// then has U+FFFD in their place.
COMMONDLL_API bool ToText(const std::filesystem::path& path, CStr& text);

} // namespace CommonUI
