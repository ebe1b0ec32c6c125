#include "settings/factory/SettingsFactory.h"

#include "common/StringTable.h"
#include "platform/MessageBoxService.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "settings/factory/detail/SetPath.h"
#include "settings/factory/detail/SettingsWarning.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace CommonUI
{

namespace
{

constexpr int c_removeQuestion = 10051;
constexpr int c_refreshQuestion = 10052;

std::unique_ptr<CSettingsFactory>& FactoryOfProcess()
{
    // Never destroyed, so that destructors of static objects may still ask.
    static auto& factory = *new std::unique_ptr<CSettingsFactory>;
    return factory;
}

} // namespace

CSettingsFactory& GetSettingsFactory()
{
    std::unique_ptr<CSettingsFactory>& factory = FactoryOfProcess();
    if (!factory)
        factory = std::make_unique<CSettingsFactory>();
    return *factory;
}

void CloseSettingsFactory()
{
    FactoryOfProcess().reset();
}

CSettingsFactory::~CSettingsFactory() = default;

// Its parts belong together: without memory for one, none is copied.
CSettingsFactory& CSettingsFactory::operator=(const CSettingsFactory& other)
{
    CSettingsFactory copy(other);
    *this = std::move(copy);
    return *this;
}

CSettings CSettingsFactory::GetSettings(int id, bool addToRecent)
{
    const SSettingsEntry* const item = FindDynamicItem(id);
    if (!item)
        return GenerateSettings(EBuiltInSetting{id}, addToRecent);
    const SSettingsEntry entry = *item;
    CSettings settings = LoadEntry(entry, addToRecent);
    if (settings.GetEntryInfo() == SSettingsEntry::s_InvalidID)
        AskToForget(entry);
    return settings;
}

CSettings CSettingsFactory::GenerateSettings(EBuiltInSetting setting, bool addToRecent)
{
    if (!IsBuiltInSetting(static_cast<int>(setting))) {
        WarnOfSettings(CStr::Format(u"No settings have the identifier %d", setting));
        return {};
    }
    const SSettingsEntry entry(setting, GetSettingType(setting));
    CSettings settings(entry, GetBuiltInSettingText(setting));
    if (addToRecent)
        AddToRecentItems(entry, 0);
    return settings;
}

void CSettingsFactory::AddToRecentItems(const SSettingsEntry& entry, unsigned index)
{
    const CRecentKey key(entry.m_IsFile, entry.m_IsFile ? index : static_cast<unsigned>(entry.m_BuiltIn));
    m_recent[entry.m_Type] = WithRecent(entry.m_Type, key);
}

// The recent list as it is once a set is the most recent one.
CSettingsFactory::CRecentKeys CSettingsFactory::WithRecent(ESettingType type, const CRecentKey& key) const
{
    CRecentKeys keys{key};
    if (const auto recent = m_recent.find(type); recent != m_recent.end())
        std::ranges::remove_copy(recent->second, std::back_inserter(keys), key);
    if (keys.size() > s_MaxRecentCount)
        keys.pop_back();
    return keys;
}

// Of a file that is registered.
CSettingsFactory::CRecentKey CSettingsFactory::GetFileKey(const SSettingsEntry& entry) const
{
    return {true, m_indices.at(entry.m_Type).at({entry.m_Name, entry.m_File})};
}

bool CSettingsFactory::NewDynamicItem(SSettingsEntry& entry, bool addToRecent)
{
    DropLastBackslash(entry);
    std::vector<SSettingsEntry>& items = m_dynamicItems[entry.m_Type];
    const auto next = static_cast<unsigned>(items.size());
    auto& indices = m_indices[entry.m_Type];
    const auto [place, isNew] = indices.try_emplace({entry.m_Name, entry.m_File}, next);
    const unsigned index = place->second;
    if (isNew) {
        try {
            items.push_back(entry);
        } catch (...) { // an index without an item would lead nowhere
            indices.erase(place);
            throw;
        }
        entry.m_ID = items.back().m_ID = static_cast<std::int32_t>(GetNewID());
        // Only now: the indices of the items stay what they are.
        if (entry.m_Type == ESettingType::Unknown)
            return false;
    } else {
        entry = items[index];
    }
    if (addToRecent)
        AddToRecentItems(entry, index);
    return true;
}

// Those that are the newest of all items; their identifiers are free again.
void CSettingsFactory::WithdrawItems(ESettingType type, std::size_t from) noexcept
{
    std::vector<SSettingsEntry>& items = m_dynamicItems.at(type);
    for (; items.size() > from; items.pop_back(), --m_nextID)
        m_indices.at(type).erase({items.back().m_Name, items.back().m_File});
}

SSettingsEntry CSettingsFactory::GetEntry(int id) const
{
    if (const SSettingsEntry* const item = FindDynamicItem(id))
        return *item;
    const EBuiltInSetting setting{id};
    return IsBuiltInSetting(id) ? SSettingsEntry(setting, GetSettingType(setting)) : SSettingsEntry();
}

int CSettingsFactory::GetFileID(ESettingType type, const CStr& path)
{
    SSettingsEntry entry(WithoutLastBackslash(path), type);
    NewDynamicItem(entry, false);
    return entry.m_ID;
}

void CSettingsFactory::OnFileMoved(ESettingType type, const CStr& from, const CStr& to)
{
    const auto getKey = [&](const CStr& path) {
        GetFileID(type, path);
        return GetFileKey({path, type});
    };
    CRecentKeys& recent = m_recent[type];
    const CRecentKey before = getKey(from);
    if (to.IsEmpty()) {
        std::erase(recent, before);
    } else if (const CRecentKey after = getKey(to);
               after != before && std::ranges::find(recent, before) != recent.end()) {
        std::erase(recent, after);
        std::ranges::replace(recent, before, after);
    }
}

const SSettingsEntry* CSettingsFactory::FindDynamicItem(int id) const
{
    for (const auto& [type, items] : m_dynamicItems) {
        const auto found = std::ranges::lower_bound(items, id, {}, &SSettingsEntry::m_ID);
        if (found != items.end() && *found == id)
            return &*found;
    }
    return nullptr;
}

// Takes an unreadable file out of the recent list of its type, if the user agrees.
void CSettingsFactory::AskToForget(const SSettingsEntry& entry)
{
    const CRecentKey key = GetFileKey(entry);
    CRecentKeys& recent = m_recent[entry.m_Type];
    const bool isRecent = std::ranges::find(recent, key) != recent.end();
    const CStr text = CStr::Format(GetString(isRecent ? c_removeQuestion : c_refreshQuestion), entry.m_File);
    const SMessageBox box{text, MessageBoxStyle::c_yesNo | MessageBoxStyle::c_warning};
    if (GetMessageBoxService().Show(box) == EMessageBoxAnswer::Yes)
        std::erase(recent, key);
}

} // namespace CommonUI
