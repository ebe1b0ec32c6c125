#pragma once

#include "../../export/Export.h"
#include "../../platform/FileDialogService.h"

namespace CommonUI
{

/// The system's dialogs for opening and saving files and for choosing folders, over the window that the user
/// works in. Saving over an existing file is asked about. The current folder of the process stays what it is.
class COMMONUIWIN_API CWinFileDialogService : public CFileDialogService
{
public:
    ~CWinFileDialogService() override;

protected:
    bool Show(const SFileDialog& dialog, CStr& path) override;
};

} // namespace CommonUI
