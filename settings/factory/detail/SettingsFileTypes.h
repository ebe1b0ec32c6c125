#pragma once

#include "common/Str.h"
#include "settings/SettingTypes.h"

#include <string_view>

namespace CommonUI
{

/// The files of a type of settings, and what file dialogs offer for them.
struct SSettingsFileType {
    ESettingType type;
    std::u16string_view extension;  ///< or, for several, their masks
    std::u16string_view openFilter; ///< with older formats and all files
    std::u16string_view saveFilter; ///< empty when the type cannot be saved
};

/// Null when there are no files of the type.
const SSettingsFileType* FindSettingsFileType(ESettingType type);
/// The masks of a type's files, joined by `|`.
CStr GetMasks(const SSettingsFileType& files);

} // namespace CommonUI
