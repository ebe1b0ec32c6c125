#include "settings/factory/SettingsFactory.h"

#include "common/ini/SectionScope.h"
#include "settings/factory/detail/SetPath.h"
#include "settings/factory/detail/SettingsWarning.h"
#include "settings/SetReference.h"

#include <ranges>

namespace CommonUI
{

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
        ini.WriteRecentTexts(type.GetIniName(), texts, s_MaxRecentCount);
    }
    return true;
}

CStr CSettingsFactory::GetStoredText(ESettingType type, const CRecentKey& key) const
{
    const auto& [isFile, number] = key;
    return isFile ? c_filePrefix + m_dynamicItems.at(type)[number].m_File
                  : MakeReference(EBuiltInSetting{static_cast<int>(number)});
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
    if (const CStr path = WithoutLastBackslash(GetReferredPath(text)); !path.IsEmpty()) {
        SSettingsEntry entry(path, type);
        NewDynamicItem(entry, true);
    } else if (const auto setting = FindBuiltIn(text, type)) {
        AddToRecentItems({*setting, type}, 0);
    } else {
        WarnOfSettings(u"A recent list of the type " +
                       GetSettingTypeEnum().GetIniName(static_cast<int>(type)) + u" names no set by \"" +
                       text + u'"');
    }
}

} // namespace CommonUI
