#pragma once

#include "measurement/ApplySteps.h"

#include <memory>

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

} // namespace Workbench
