#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../Service.h"

namespace CommonUI
{

/// What an application lends the library of its user's file manager. Used on the user-interface thread.
class COMMONUI_API CFileManager
{
public:
    CFileManager() = default;
    virtual ~CFileManager();
    CFileManager(const CFileManager&) = delete;
    CFileManager& operator=(const CFileManager&) = delete;

    /// Moves a file to where the user can get it back from. Nothing is ever deleted.
    /// @return false, and the file stays, when the system has no such place for it
    virtual bool MoveToTrash(const CStr& path) = 0;
    /// Shows a folder to the user. @return false when nobody can
    virtual bool OpenFolder(const CStr& folder) = 0;
    /// Opens a file with the program that the user has for such files. @return false when there is none
    virtual bool OpenFile(const CStr& path) = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CFileManager> s_current;
};

/// The file manager of the process: a CMemoryFileManager without a trash unless another one was set.
COMMONUI_API CFileManager& GetFileManager();

} // namespace CommonUI
