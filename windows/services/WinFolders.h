#pragma once

#include "../../export/Export.h"
#include "../../platform/Folders.h"

namespace CommonUI
{

/// The folders as the system's shell knows them, whatever the environment says: that of the program, and that
/// for settings which go with the user from one machine to another.
class COMMONUIWIN_API CWinFolders : public CFolders
{
public:
    ~CWinFolders() override;

    std::filesystem::path GetApplicationFolder() const override;
    std::filesystem::path GetSettingsFolder() const override;
};

} // namespace CommonUI
