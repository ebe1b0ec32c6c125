#include "windows/services/WinFolders.h"

#include "windows/detail/Api.h"
#include "windows/detail/ProgramFile.h"

#include <shlobj.h>

namespace CommonUI
{

CWinFolders::~CWinFolders() = default;

std::filesystem::path CWinFolders::GetApplicationFolder() const
{
    return GetProgramFile().parent_path();
}

std::filesystem::path CWinFolders::GetSettingsFolder() const
{
    wchar_t* found = nullptr;
    const bool isKnown =
        SUCCEEDED(SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_DONT_VERIFY, nullptr, &found));
    std::filesystem::path folder = isKnown ? std::filesystem::path(found) : GetApplicationFolder();
    CoTaskMemFree(found); // also where it failed
    return folder;
}

} // namespace CommonUI
