#include "windows/services/WinFileManager.h"

#include "common/PathText.h"
#include "windows/detail/Api.h"
#include "windows/detail/Com.h"
#include "windows/detail/Shell.h"
#include "windows/detail/WinText.h"

#include <shellapi.h>

namespace CommonUI
{

namespace
{

bool IsFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Elsewhere the shell would delete for good.
bool HasTrash(const std::filesystem::path& path)
{
    const std::wstring root = path.root_path().wstring();
    SHQUERYRBINFO bin{};
    bin.cbSize = sizeof bin;
    return GetDriveTypeW(root.c_str()) == DRIVE_FIXED && SUCCEEDED(SHQueryRecycleBinW(root.c_str(), &bin));
}

} // namespace

CWinFileManager::~CWinFileManager() = default;

bool CWinFileManager::MoveToTrash(const CStr& path)
{
    // The shell takes masks and lists of names: what is no name of one file stays with us.
    if (path.FindOneOf(std::u16string_view(u"*?\0", 3)) != CStr::npos)
        return false;
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(ToPath(path), error).make_preferred();
    std::wstring names = full.wstring();
    if (error || names.size() >= MAX_PATH || !IsFile(names) || !HasTrash(full))
        return false;
    names += L'\0'; // and the zero of the text itself: the end of the list
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_WANTNUKEWARNING | FOF_NOERRORUI | FOF_SILENT;
    return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted && !IsFile(full.wstring());
}

bool CWinFileManager::OpenFolder(const CStr& folder)
{
    const std::wstring path = ToWide(folder);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) &&
           OpenByShell(path, L"");
}

bool CWinFileManager::OpenFile(const CStr& path)
{
    const std::wstring name = ToWide(path);
    return IsFile(name) && OpenByShell(name, L"");
}

} // namespace CommonUI
