#include "dialogs/settings/SettingsFiles.h"

#include "common/file/DeviceName.h"
#include "common/file/FileBytes.h"
#include "common/PathText.h"
#include "common/StringTable.h"
#include "dialogs/settings/detail/SettingsMenuTexts.h"
#include "platform/files/FileManager.h"
#include "platform/MessageBoxService.h"
#include "settings/factory/SettingsFactory.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <optional>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

bool Fail(const CStr& text)
{
    GetMessageBoxService().Show({text, MessageBoxStyle::c_ok | MessageBoxStyle::c_error});
    return false;
}

// Whether every system takes a name for that of a file in a folder.
bool IsFileName(std::u16string_view name)
{
    const bool isClean = std::ranges::none_of(name, [](char16_t unit) {
        return unit < u' ' || std::u16string_view(u"/\\:*?\"<>|").find(unit) != std::u16string_view::npos;
    });
    return isClean && !TrimView(name).empty() && !name.starts_with(u'.') && !name.ends_with(u'.') &&
           !IsDeviceName(TrimView(name));
}

// Another file than that of the path: a system that takes capitals for small letters finds the same one.
bool IsTaken(const CStr& wanted, const CStr& path)
{
    std::error_code error;
    return FileExists(wanted) && !fs::equivalent(ToPath(wanted), ToPath(path), error);
}

// What a change of the file system gave for a reason; empty if it has succeeded.
template<class FChange>
std::optional<CStr> GetFault(FChange change)
{
    try {
        change();
        return {};
    } catch (const fs::filesystem_error& error) {
        return CStr::FromUtf8(error.code().message());
    } catch (const std::exception& error) {
        return CStr::FromUtf8(error.what());
    }
}

} // namespace

bool RenameSettings(ESettingType type, CStr& path, const CStr& name)
{
    if (!IsFileName(name))
        return Fail(CStr::Format(GetString(c_noFileNameText), name));
    const CStr wanted = GetFolder(path) + CSettingsFactory::AddExtension(type, name.Trim());
    if (wanted == path)
        return true;
    if (IsTaken(wanted, path))
        return Fail(CStr::Format(GetString(c_nameTakenText), wanted));
    if (const auto fault = GetFault([&] { fs::rename(ToPath(path), ToPath(wanted)); }))
        return Fail(CStr::Format(GetString(c_cannotRenameText), path, *fault));
    GetSettingsFactory().OnFileMoved(type, path, wanted);
    path = wanted;
    return true;
}

bool DeleteSettings(ESettingType type, const CStr& path)
{
    const SMessageBox question{CStr::Format(GetString(c_trashQuestion), CStr(GetFileName(path))),
                               MessageBoxStyle::c_yesNo | MessageBoxStyle::c_warning};
    if (GetMessageBoxService().Show(question) != EMessageBoxAnswer::Yes)
        return false;
    if (!GetFileManager().MoveToTrash(path))
        return Fail(CStr::Format(GetString(c_noTrashText), path));
    GetSettingsFactory().OnFileMoved(type, path, {});
    return true;
}

bool OpenSettingsFolder(ESettingType type)
{
    const CStr folder = CSettingsFactory::GetCustomPlace(type).folder;
    const auto fault = GetFault([&] { fs::create_directories(ToPath(folder)); });
    return (!fault && GetFileManager().OpenFolder(folder)) ||
           Fail(CStr::Format(GetString(c_cannotOpenText), folder));
}

} // namespace CommonUI
