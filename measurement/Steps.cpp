#include "measurement/Steps.h"

#include "common/PathText.h"
#include "common/StringTable.h"
#include "measurement/FailureReason.h"
#include "measurement/Request.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

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

template<class T>
T ReadSet(CInifile& ini, const CFailureReason& reason, const CStr& userSpec)
{
    T settings;
    if (!settings.Load(ini))
        throw ERequest(userSpec, reason.GetText());
    return settings;
}

SStep LoadStep(CSettingsFactory& factory, const CStr& userSpec)
{
    CSettingsFactory::SParseInfo info;
    if (!factory.ParseUserSpec(userSpec, info))
        throw ERequest(u"", info.error);
    if (info.type != ESettingType::PlaneCorr && info.type != ESettingType::Filter)
        throw ERequest(userSpec, u"only plane corrections (PlaneCorr) and filters (Filter) can be applied");
    if (info.entries.empty())
        throw EUnknownSet(userSpec);
    const CFailureReason reason;
    CSettings set = LoadSet(factory, info.entries.front());
    const SSettingsEntry entry = set.GetEntryInfo();
    if (entry == SSettingsEntry::s_InvalidID)
        throw ERequest(userSpec, reason.GetText());
    SStep step{.userSpec = userSpec, .name = MenuPath(entry), .settings = {}};
    if (info.type == ESettingType::PlaneCorr)
        step.settings = ReadSet<SPlaneCorrectionSettings>(set, reason, userSpec);
    else
        step.settings = ReadSet<SFilterSettings>(set, reason, userSpec);
    return step;
}

} // namespace

std::vector<SStep> LoadSteps(CSettingsFactory& factory, const std::vector<CStr>& userSpecs)
{
    std::vector<SStep> steps;
    steps.reserve(userSpecs.size());
    for (const CStr& userSpec : userSpecs)
        steps.push_back(LoadStep(factory, userSpec));
    return steps;
}

} // namespace CommonUI::Measurement
