#pragma once

#include "measurement/ApplySteps.h"

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace Workbench
{

/// The filter of the dialog in which the user names the file.
const char16_t* GetSaveFilter();

/// Writes a surface in the format of the file's extension while a dialog shows that it takes time. The file
/// has all of it, or what it had before.
/// @param parent see CQtProgressThreadDialog
/// @return false where the user has cancelled; then nothing is written
/// @throws CommonUI::Measurement::ERequest with the file and the reason where it cannot be written
bool SaveSurface(QWidget* parent, const std::shared_ptr<const CommonUI::Measurement::SInput>& input,
                 const CommonUI::CStr& path);

/// Writes what is made on another thread, in the same way.
/// @param make holds all that it needs: it may go on when the user has cancelled
bool SaveInBackground(QWidget* parent, const CommonUI::CStr& path, std::function<std::string()> make);

} // namespace Workbench
