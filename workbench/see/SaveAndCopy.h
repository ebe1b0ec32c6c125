#pragma once

#include "common/Str.h"

#include <string_view>

namespace Workbench
{

/// Puts a table on the clipboard, as text and as HTML.
/// @param text rows end with "\r\n", cells with "\t"
void CopyTable(const CommonUI::CStr& text);

/// Asks for a file. @return empty when the user cancels
CommonUI::CStr ChooseFileToSave(const CommonUI::CStr& filter, const CommonUI::CStr& extension,
                                const CommonUI::CStr& proposed);

/// Writes a file; a box says why it could not be written.
void SaveFile(const CommonUI::CStr& path, std::string_view bytes);

/// Says in a box why a file was not written.
void TellNotSaved(const CommonUI::CStr& reason);

} // namespace Workbench
