#include "platform/Folders.h"

#include <cstdlib>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

#if defined(_WIN32)

fs::path ExecutableFile()
{
    // The longest path that Windows has.
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return name;
}

fs::path UserSettings()
{
    const wchar_t* const folder = _wgetenv(L"APPDATA");
    return folder ? fs::path(folder) : fs::path();
}

#else

fs::path ExecutableFile()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

fs::path UserSettings()
{
    const char* const settings = std::getenv("XDG_CONFIG_HOME");
    if (settings && fs::path(settings).is_absolute())
        return settings;
    const char* const user = std::getenv("HOME");
    return user && *user ? fs::path(user) / ".config" : fs::path();
}

#endif

class CSystemFolders : public CFolders
{
public:
    fs::path GetApplicationFolder() const override
    {
        const fs::path file = ExecutableFile();
        std::error_code error;
        return file.empty() ? fs::current_path(error) : file.parent_path();
    }
    fs::path GetSettingsFolder() const override
    {
        const fs::path folder = UserSettings();
        return folder.empty() ? GetApplicationFolder() : folder;
    }
};

CFolders& GetSystemFolders()
{
    // Never destroyed, so that destructors of static objects may still ask.
    static CFolders& folders = *new CSystemFolders;
    return folders;
}

} // namespace

constinit CCurrentService<CFolders> CFolders::s_current(GetSystemFolders);

CFolders::~CFolders() = default;

const CFolders& GetFolders()
{
    return CFolders::s_current.Get();
}

} // namespace CommonUI
