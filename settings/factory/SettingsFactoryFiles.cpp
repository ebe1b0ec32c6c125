#include "common/file/FileBytes.h"
#include "settings/factory/detail/SetPath.h"
#include "settings/factory/detail/SettingsWarning.h"
#include "settings/factory/SettingsFactory.h"

#include <new>

namespace CommonUI
{

bool CSettingsFactory::ReadSettingsFile(const CStr& path, CInifile& document)
{
    CStr reason;
    try {
        std::string bytes;
        if (ReadFileBytes(path, bytes, c_maximumFileSize, reason)) {
            document.TakeStored(std::move(bytes));
            return true;
        }
    } catch (const std::bad_alloc&) {
        reason = u"not enough memory";
    }
    WarnOfSettings(u"Cannot load \"" + path + u"\": " + reason);
    return false;
}

CSettings CSettingsFactory::LoadSettings(ESettingType type, const CStr& path, bool addToRecent)
{
    return LoadEntry({WithoutLastBackslash(path), type}, addToRecent);
}

CSettings CSettingsFactory::LoadEntry(SSettingsEntry entry, bool addToRecent)
{
    CInifile document;
    const bool isRead = entry.m_Type == ESettingType::ColorScale ? ReadColorScale(entry.m_File, document)
                                                                 : ReadSettingsFile(entry.m_File, document);
    if (!isRead)
        return {};
    NewDynamicItem(entry, addToRecent);
    CSettings settings;
    // All of the document, comments included: a set that is saved again has lost nothing.
    static_cast<CInifile&>(settings) = std::move(document);
    settings.SetFileName(entry.m_File);
    settings.SetEntryInfo(std::move(entry));
    return settings;
}

bool CSettingsFactory::SaveSettings(CSettings& settings, bool addToRecent)
{
    SSettingsEntry entry = settings.GetEntryInfo();
    DropLastBackslash(entry);
    if (!entry.m_IsFile) {
        WarnOfSettings(u"Cannot save \"" + entry.m_Name + u"\", which has no file");
        return false;
    }
    // Under another name than that of the file it was loaded from, a set replaces what is there: its user has
    // chosen that.
    const bool isSame = settings.GetFileName() == entry.m_File;
    settings.SetFileName(entry.m_File);
    // What the lists need memory for comes before the file is written, and goes again if it is not.
    const std::size_t known = m_dynamicItems[entry.m_Type].size();
    const bool isUsed = NewDynamicItem(entry, false) && addToRecent;
    CRecentKeys& recent = m_recent[entry.m_Type];
    CRecentKeys after = isUsed ? WithRecent(entry.m_Type, GetFileKey(entry)) : recent;
    if (!(isSame ? settings.SaveWhole() : settings.Save())) {
        WithdrawItems(entry.m_Type, known);
        return false;
    }
    recent = std::move(after);
    settings.SetEntryInfo(std::move(entry));
    return true;
}

} // namespace CommonUI
