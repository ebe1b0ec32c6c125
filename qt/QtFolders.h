#pragma once

#include "../platform/Folders.h"
#include "Export.h"

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
