#include "settings/Settings.h"

#include <utility>

namespace CommonUI
{

CSettings::CSettings(const SSettingsEntry& entry, const CStr& text)
    : m_entry(entry)
{
    if (entry.m_IsFile) {
        SetFileName(entry.m_File);
    } else if (!text.IsEmpty()) {
        const int number = static_cast<int>(entry.m_BuiltIn);
        SetFileName(u"BuiltInSetting_" + GetBuiltInSettingEnum().GetIniName(number));
        ParseLine(text);
    }
}

CSettings::~CSettings() = default;

void CSettings::SetEntryInfo(SSettingsEntry entry)
{
    m_entry = std::move(entry);
}

bool CSettings::Save()
{
    return CInifile::Save();
}

} // namespace CommonUI
