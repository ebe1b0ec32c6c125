#include "programs/surface_report/Steps.h"

#include "common/StringTable.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/Reason.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace SurfaceReport
{

using namespace CommonUI;

namespace
{

CStr TypeText(ESettingType type)
{
    return GetSettingTypeEnum().GetFriendlyString(static_cast<int>(type));
}

CStr MenuPath(const SSettingsEntry& entry)
{
    constexpr std::u16string_view separator = u" / ";
    CStr path = TypeText(entry.m_Type) + separator;
    const auto groups = GetBuiltInSettingGroups();
    const auto group = std::ranges::find_if(groups, [id = entry.m_ID](const SBuiltInSettingGroup& row) {
        return row.first <= id && id <= row.last;
    });
    if (group != groups.end() && group->headingId != 0)
        path += GetString(group->headingId) + separator;
    return (path + entry.m_Name).TrimRight();
}

// The full path, the same whatever roundabout way leads to the file.
std::filesystem::path FullPath(const CStr& text)
{
    const auto path = std::filesystem::absolute(std::filesystem::path(text.begin(), text.end()));
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

template<class TSettings>
TSettings ReadSet(CInifile& ini, const CReason& reason, const std::string& context)
{
    TSettings settings;
    if (!settings.Load(ini))
        reason.Fail(context);
    return settings;
}

SStep LoadStep(CSettingsFactory& factory, const std::string& userSpec)
{
    const std::string context = "--settings " + userSpec + ": ";
    CSettingsFactory::SParseInfo info;
    if (!factory.ParseUserSpec(CStr::FromUtf8(userSpec), info))
        throw EUsage("--settings: " + info.error.ToUtf8());
    if (info.type != ESettingType::PlaneCorr && info.type != ESettingType::Filter)
        throw EUsage(context + "only plane corrections (PlaneCorr) and filters (Filter) can be applied");
    if (info.entries.empty())
        throw EUsage(context + "there is no such set; see --list-settings");
    const CReason reason;
    CSettings set = LoadSet(factory, info.entries.front());
    const SSettingsEntry entry = set.GetEntryInfo();
    if (entry == SSettingsEntry::s_InvalidID)
        reason.Fail(context);
    SStep step{.userSpec = userSpec, .name = MenuPath(entry), .settings = {}};
    if (info.type == ESettingType::PlaneCorr)
        step.settings = ReadSet<SPlaneCorrectionSettings>(set, reason, context);
    else
        step.settings = ReadSet<SFilterSettings>(set, reason, context);
    return step;
}

// Appends a line for each node, deeper ones further to the right.
void AppendTrees(const std::vector<CSettingsFactory::CTree>& trees, std::size_t depth, CStr& text)
{
    for (const CSettingsFactory::CTree& tree : trees) {
        const auto& [name, id] = tree.GetValue();
        text += CStr(2 * depth, u' ');
        text += id == SSettingsEntry::s_InvalidID ? name : CStr::Format(u"%3d  %s", id, name).TrimRight();
        text += u'\n';
        AppendTrees(tree.GetChildren(), depth + 1, text);
    }
}

} // namespace

std::vector<SStep> LoadSteps(CSettingsFactory& factory, const std::vector<std::string>& userSpecs)
{
    std::vector<SStep> steps;
    steps.reserve(userSpecs.size());
    for (const std::string& userSpec : userSpecs)
        steps.push_back(LoadStep(factory, userSpec));
    return steps;
}

std::string ListSettings(CSettingsFactory& factory, const std::string& type)
{
    CStr text;
    bool found = false;
    for (const auto& row : GetSettingTypeEnum()) {
        const auto listed = static_cast<ESettingType>(row.GetValue());
        const bool asked = type.empty() || row.GetIniName() == CStr::FromUtf8(type);
        if (!asked || listed == ESettingType::Unknown)
            continue;
        found = true;
        const auto trees = factory.GetTree(listed, true);
        text += CStr::Format(u"%s (%s)%s\n", row.GetFriendlyString(), row.GetIniName(),
                             trees.empty() ? u": none" : u"");
        AppendTrees(trees, 1, text);
    }
    if (!found)
        throw EUsage("--list-settings: there is no type \"" + type + "\"");
    return text.ToUtf8();
}

} // namespace SurfaceReport
