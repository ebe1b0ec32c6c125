#pragma once

#include "../Folders.h"

namespace CommonUI
{

/// Folders that the application names: for programs that are not installed, and for tests.
class COMMONUI_API CFixedFolders : public CFolders
{
public:
    /// Names the folders as they are; neither has to be there.
    CFixedFolders(std::filesystem::path application, std::filesystem::path settings);

    std::filesystem::path GetApplicationFolder() const override;
    std::filesystem::path GetSettingsFolder() const override;

private:
    std::filesystem::path m_application;
    std::filesystem::path m_settings;
};

} // namespace CommonUI
