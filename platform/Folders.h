#pragma once

#include "../export/Export.h"
#include "Service.h"

#include <filesystem>

namespace CommonUI
{

/// Where an application lies and where it may keep what belongs to its user.
class COMMONUI_API CFolders
{
public:
    CFolders() = default;
    CFolders(const CFolders&) = delete;
    CFolders& operator=(const CFolders&) = delete;
    virtual ~CFolders();

    /// The folder of the running program, in which its own files lie.
    virtual std::filesystem::path GetApplicationFolder() const = 0;
    /// The folder for the user's settings; it need not exist.
    virtual std::filesystem::path GetSettingsFolder() const = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CFolders> s_current;
};

/// The folders of the process. From the start they are the system's: the folder of the executable file, or
/// the current one where the system does not tell; and the user's folder for settings of programs
/// (XDG_CONFIG_HOME or .config on Linux, APPDATA on Windows), or the application's where there is none.
COMMONUI_API const CFolders& GetFolders();

} // namespace CommonUI
