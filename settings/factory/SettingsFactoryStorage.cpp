#include "settings/factory/SettingsFactory.h"

#include "common/ini/SectionScope.h"
#include "settings/factory/detail/SettingsFiles.h"

#include <ranges>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_filePrefix = u"FILE:";
constexpr std::u16string_view c_builtInPrefix = u"BUILT-IN:";

} // namespace

bool CSettingsFactory::Save(CInifile& ini) const
{
    const CSectionScope scope(ini, c_StorageSection);
    for (const auto& type : GetSettingTypeEnum()) {
        std::vector<CStr> texts;
        if (const auto recent = m_recent.find(ESettingType{type.GetValue()}); recent != m_recent.end()) {
            texts.reserve(recent->second.size());
            for (const CRecentKey& key : recent->second)
                texts.push_back(GetStoredText(recent->first, key));
        }
        ini.WriteTexts(type.GetIniName(), texts);
    }
    return true;
}

CStr CSettingsFactory::GetStoredText(ESettingType type, const CRecentKey& key) const
{
    const auto& [isFile, number] = key;
    return isFile ? c_filePrefix + m_dynamicItems.at(type)[number].m_File
                  : c_builtInPrefix + GetBuiltInSettingEnum().GetIniName(static_cast<int>(number));
}

bool CSettingsFactory::Load(CInifile& ini)
{
    const CSectionScope scope(ini, c_StorageSection);
    for (const auto& type : GetSettingTypeEnum()) {
        // From the last to the first: each comes in front of those before it.
        const std::vector<CStr> texts = ini.ReadTexts(type.GetIniName());
        for (const CStr& text : texts | std::views::reverse)
            LoadRecentItem(ESettingType{type.GetValue()}, text);
    }
    return true;
}

void CSettingsFactory::LoadRecentItem(ESettingType type, const CStr& text)
{
    if (text.StartsWith(c_filePrefix) && text != c_filePrefix) {
        SSettingsEntry entry(text.Mid(c_filePrefix.size()), type);
        NewDynamicItem(entry, true);
        return;
    }
    if (text.StartsWith(c_builtInPrefix)) {
        const auto setting =
            GetBuiltInSettingEnum().GetValue(text.View().substr(c_builtInPrefix.size()), EBuiltInSetting{});
        if (IsBuiltInSetting(static_cast<int>(setting)) && GetSettingType(setting) == type)
            return AddToRecentItems({setting, type}, 0);
    }
    WarnOfSettings(u"A recent list of the type " + GetSettingTypeEnum().GetIniName(static_cast<int>(type)) +
                   u" names no set by \"" + text + u'"');
}

} // namespace CommonUI
