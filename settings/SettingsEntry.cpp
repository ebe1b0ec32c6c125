#include "settings/SettingsEntry.h"

#include "common/PathText.h"

namespace CommonUI
{

SSettingsEntry::SSettingsEntry(const CStr& path, ESettingType type)
    : m_Name(GetFileName(path))
    , m_IsFile(true)
    , m_Type(type)
    , m_File(path)
{
}

SSettingsEntry::SSettingsEntry(EBuiltInSetting setting, ESettingType type)
    : m_ID(static_cast<std::int32_t>(setting))
    , m_Name(GetBuiltInSettingEnum().GetFriendlyString(m_ID))
    , m_Type(type)
    , m_BuiltIn(setting)
{
}

} // namespace CommonUI
