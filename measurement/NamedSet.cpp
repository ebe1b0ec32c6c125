#include "measurement/NamedSet.h"

#include "common/PathText.h"
#include "common/StringTable.h"
#include "settings/SetReference.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

CStr TypeText(ESettingType type)
{
    return GetSettingTypeEnum().GetFriendlyString(static_cast<int>(type));
}

CStr MenuPath(const SSettingsEntry& entry)
{
    constexpr std::u16string_view c_separator = u" / ";
    CStr path = TypeText(entry.m_Type) + c_separator;
    const auto groups = GetBuiltInSettingGroups();
    const auto group = std::ranges::find_if(groups, [id = entry.m_ID](const SBuiltInSettingGroup& row) {
        return row.first <= id && id <= row.last;
    });
    if (group != groups.end() && group->headingId != 0)
        path += GetString(group->headingId) + c_separator;
    return (path + entry.m_Name).TrimRight();
}

// The full path, the same whatever roundabout way leads to the file.
std::filesystem::path FullPath(const CStr& text)
{
    const auto path = std::filesystem::absolute(ToPath(text));
    std::error_code error;
    const auto folder = std::filesystem::weakly_canonical(path.parent_path(), error);
    return error ? path : folder / path.filename();
}

// The set of an entry. A file is loaded by its path, as nobody is there to be asked what to do without it.
CSettings LoadSet(CSettingsFactory& factory, const SSettingsEntry& entry)
{
    if (!entry.m_IsFile)
        return factory.GetSettings(entry.m_ID, true);
    return factory.LoadSettings(entry.m_Type, FullPath(entry.m_File).u16string(), true);
}

// @param subject what is said to be at fault where the set could not be loaded
SNamedSet Named(ESettingType type, CSettings settings, const CStr& subject, const CFailureReason& reason)
{
    const SSettingsEntry entry = settings.GetEntryInfo();
    if (entry == SSettingsEntry::s_InvalidID)
        throw ERequest(subject, reason.GetText());
    return {.type = type, .name = MenuPath(entry), .settings = std::move(settings)};
}

} // namespace

SNamedSet LoadNamedSet(CSettingsFactory& factory, const CStr& userSpec,
                       std::initializer_list<ESettingType> types, std::u16string_view refusal)
{
    CSettingsFactory::SParseInfo info;
    if (!factory.ParseUserSpec(userSpec, info))
        throw ERequest(u"", info.error);
    if (std::ranges::find(types, info.type) == types.end())
        throw ERequest(userSpec, CStr(refusal));
    if (info.entries.empty())
        throw EUnknownSet(userSpec);
    const CFailureReason reason;
    return Named(info.type, LoadSet(factory, info.entries.front()), userSpec, reason);
}

SNamedSet LoadReferredSet(CSettingsFactory& factory, ESettingType type, const CStr& reference)
{
    const CFailureReason reason;
    if (const auto setting = FindBuiltIn(reference, type))
        return Named(type, factory.GetSettings(static_cast<int>(*setting), false), reference, reason);
    const CStr path = FullPath(CStr(GetReferredPath(reference))).u16string();
    return Named(type, factory.LoadSettings(type, path, false), reference, reason);
}

} // namespace CommonUI::Measurement
