#pragma once

#include "../../settings/SettingsEntry.h"

namespace CommonUI
{

/// @file
/// What a user does with the files of the sets, on the user-interface thread. What cannot be done is said in
/// a message box, and the files are as they were.

/// Gives a file another name in its folder; the recent list of the factory follows.
/// @param name without folders; gets the extension of the type's files if it has none of them
/// @param path receives the new path
COMMONUI_API bool RenameSettings(ESettingType type, CStr& path, const CStr& name);

/// Moves a file to the trash if the user agrees; it leaves the recent list of the factory.
COMMONUI_API bool DeleteSettings(ESettingType type, const CStr& path);

/// Shows the folder of the user's own sets, which comes into being if there is none.
COMMONUI_API bool OpenSettingsFolder(ESettingType type);

} // namespace CommonUI
