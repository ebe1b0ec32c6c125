#include "common/StringTable.h"
#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"
#include "settings/factory/detail/CustomSettingsFolder.h"
#include "settings/factory/detail/SettingsFileTypes.h"
#include "settings/factory/SettingsFactory.h"

namespace CommonUI
{

namespace
{

constexpr int c_cannotLoad = 10053;
constexpr int c_cannotSave = 10054;
constexpr int c_noFilesToOpen = 10058;
constexpr int c_noFilesToSave = 10059;
constexpr int c_notFilled = 10060;

// Shows a text about a path or a type. @return false, the answer of who shows it
bool Fail(int textId, const CStr& subject)
{
    GetMessageBoxService().Show(
        {CStr::Format(GetString(textId), subject), MessageBoxStyle::c_ok | MessageBoxStyle::c_error});
    return false;
}

CStr GetMemoryKey(ESettingType type)
{
    return u"Settings_" + GetSettingTypeEnum().GetIniName(static_cast<int>(type));
}

CStr GetTypeText(ESettingType type)
{
    return GetSettingTypeEnum().GetFriendlyString(static_cast<int>(type));
}

} // namespace

bool CSettingsFactory::GetFileDialogInfo(bool forOpen, ESettingType type, CStr& filter, CStr& extension)
{
    const SSettingsFileType* const files = FindSettingsFileType(type);
    if (!files || (!forOpen && files->saveFilter.empty()))
        return false;
    filter = forOpen ? files->openFilter : files->saveFilter;
    extension = files->extension;
    return true;
}

bool CSettingsFactory::CanSave(ESettingType type)
{
    CStr filter;
    CStr extension;
    return GetFileDialogInfo(false, type, filter, extension);
}

SFileDialog CSettingsFactory::MakeOpenDialog(ESettingType type)
{
    SFileDialog dialog{.memoryKey = GetMemoryKey(type), .folder = GetCustomSettingsFolder()};
    GetFileDialogInfo(dialog.forOpen, type, dialog.filter, dialog.extension);
    // A name without an extension is that of a file without one.
    dialog.extension.Clear();
    return dialog;
}

bool CSettingsFactory::LoadSettingsPrompt(CSettings& settings, ESettingType type, const CStr& initialPath,
                                          bool addToRecent)
{
    if (!FindSettingsFileType(type))
        return Fail(c_noFilesToOpen, GetTypeText(type));
    SFileDialog dialog = MakeOpenDialog(type);
    dialog.file = initialPath;
    CStr path;
    if (!GetFileDialogService().Choose(dialog, path))
        return false;
    CSettings loaded = LoadSettings(type, path, addToRecent);
    if (loaded.GetEntryInfo() == SSettingsEntry::s_InvalidID)
        return Fail(c_cannotLoad, path);
    settings = std::move(loaded);
    return true;
}

bool CSettingsFactory::SaveSettingsPrompt(ESettingType type, CStr& path,
                                          const CMultiClosure1<bool, CSettings&>& saver, bool addToRecent)
{
    SFileDialog dialog{
        .forOpen = false, .memoryKey = GetMemoryKey(type), .folder = GetCustomSettingsFolder(), .file = path};
    if (!GetFileDialogInfo(dialog.forOpen, type, dialog.filter, dialog.extension))
        return Fail(c_noFilesToSave, GetTypeText(type));
    CStr chosen;
    if (!GetFileDialogService().Choose(dialog, chosen))
        return false;
    const SSettingsEntry entry(chosen, type);
    CSettings settings(entry, {});
    if (!saver.Invoke(settings))
        return Fail(c_notFilled, chosen);
    // A subscriber may have assigned a set with an entry of its own.
    settings.SetEntryInfo(entry);
    if (!SaveSettings(settings, addToRecent))
        return Fail(c_cannotSave, chosen);
    path = chosen;
    return true;
}

} // namespace CommonUI
