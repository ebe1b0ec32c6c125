#pragma once

#include "../../export/Export.h"
#include "../../platform/files/FileManager.h"

namespace CommonUI
{

/// The trash of the desktop, and its file manager.
class COMMONUIQT_API CQtFileManager : public CFileManager
{
public:
    ~CQtFileManager() override;

    bool MoveToTrash(const CStr& path) override;
    bool OpenFolder(const CStr& folder) override;
    bool OpenFile(const CStr& path) override;
};

} // namespace CommonUI
