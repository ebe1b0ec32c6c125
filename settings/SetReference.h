#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "catalogue/BuiltInSetting.h"

#include <optional>
#include <string_view>

namespace CommonUI
{

/// @file
/// How recent lists and batch sequences store which set they mean: c_builtInPrefix and a key of the
/// catalogue, or c_filePrefix and a path.

/// In front of the key of a built-in set.
inline constexpr std::u16string_view c_builtInPrefix = u"BUILT-IN:";
/// In front of the path of a file.
inline constexpr std::u16string_view c_filePrefix = u"FILE:";

/// The text that means a built-in set.
COMMONUI_API CStr MakeReference(EBuiltInSetting setting);
/// The built-in set that a text means; none for every other text and for a set of another type.
COMMONUI_API std::optional<EBuiltInSetting> FindBuiltIn(std::u16string_view reference, ESettingType type);
/// The path of the file that a text means; empty for every other text.
COMMONUI_API std::u16string_view GetReferredPath(std::u16string_view reference);

} // namespace CommonUI
