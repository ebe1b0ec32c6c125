#pragma once

#include "../../export/Export.h"
#include "../../platform/files/FileManager.h"

namespace CommonUI
{

/// The recycle bin, and the windows in which the shell shows folders. Drives without a recycle bin, such as
/// those of the network, and paths longer than the shell takes have no trash.
class COMMONUIWIN_API CWinFileManager : public CFileManager
{
public:
    ~CWinFileManager() override;

    bool MoveToTrash(const CStr& path) override;
    /// Shows folders only: nothing else is opened, and no program started.
    bool OpenFolder(const CStr& folder) override;
    bool OpenFile(const CStr& path) override;
};

} // namespace CommonUI
