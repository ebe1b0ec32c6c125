#pragma once

#include "../../export/Export.h"
#include "../../platform/Folders.h"

namespace CommonUI
{

/// The folders as Qt knows them: that of the program, and QStandardPaths::GenericConfigLocation for settings.
class COMMONUIQT_API CQtFolders : public CFolders
{
public:
    ~CQtFolders() override;

    std::filesystem::path GetApplicationFolder() const override;
    std::filesystem::path GetSettingsFolder() const override;
};

} // namespace CommonUI
