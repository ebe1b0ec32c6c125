#pragma once

#include "common/ini/Inifile.h"
#include "settings/factory/SimpleTree.h"
#include "settings/SettingTypes.h"

#include <filesystem>
#include <string_view>

namespace CommonUI
{

/// @file
/// The files in which settings lie: their kinds, where they are found, how their paths are written.

/// What file dialogs offer for a type.
struct SSettingsFiles {
    ESettingType type;
    std::u16string_view extension;  ///< or, for several, their masks
    std::u16string_view openFilter; ///< with older formats and all files
    std::u16string_view saveFilter; ///< empty when the type cannot be saved
};

/// Null when there are no files of the type.
const SSettingsFiles* FindSettingsFiles(ESettingType type);
/// The masks of a type's files, joined by `|`.
CStr GetMasks(const SSettingsFiles& files);

/// The folder in which the user's own settings are looked for, with a separator at its end; empty, with a
/// warning, when no text leads to it.
CStr GetCustomSettingsFolder();

/// The files below a folder whose names match a mask: inner nodes are folders by name, leaves are files by
/// path. A folder that does not exist has no files.
CSimpleTree<CStr> FindFilesBelow(const CStr& folder, std::u16string_view masks);

/// Whether a name fits a mask, without regard to case: `*` is any text, `?` any character, and "*.*" fits
/// every name.
bool MatchesMask(std::u16string_view name, std::u16string_view mask) noexcept;
/// A text by whose order names stand as a user expects them: without regard to case, numbers by value.
std::u16string GetSortKey(std::u16string_view name);

/// Writes a warning of the settings to the diagnostics.
void WarnOfSettings(const CStr& text);

inline std::filesystem::path ToPath(const CStr& text)
{
    return {text.begin(), text.end()};
}

/// The path as text; false when no text leads to it, as the name has bytes that are no characters. The text
/// then has U+FFFD in their place.
bool ToText(const std::filesystem::path& path, CStr& text);

} // namespace CommonUI
