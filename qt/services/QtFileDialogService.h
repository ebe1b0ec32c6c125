#pragma once

#include "../../export/Export.h"
#include "../../platform/FileDialogService.h"

namespace CommonUI
{

/// Dialogs of the desktop for files and folders, or of Qt where it has none, over the window that the user
/// works in. Saving over an existing file is asked about. Paths have the separators of the system.
class COMMONUIQT_API CQtFileDialogService : public CFileDialogService
{
public:
    ~CQtFileDialogService() override;

protected:
    bool Show(const SFileDialog& dialog, CStr& path) override;
};

} // namespace CommonUI
