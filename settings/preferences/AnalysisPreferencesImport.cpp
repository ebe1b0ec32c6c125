#include "settings/preferences/AnalysisPreferencesImport.h"

#include "common/file/FileBytes.h"
#include "common/ini/SectionScope.h"
#include "common/StringTable.h"

#include <utility>

namespace CommonUI
{

namespace
{

using CManager = CAnalysisPreferencesManager;

constexpr int c_cannotReadText = 11218;
constexpr int c_noPreferencesText = 12301;
constexpr int c_changedMeanwhileText = 12302;
// The preferences of all analyses with thousands of parameters of the user's have less.
constexpr std::size_t c_maximumFileSize = std::size_t{64} << 20;

// What a manager would save, which is the same for all texts of the same meaning.
CInifile Save(const CManager& manager)
{
    CManager copy; // as a save clears the mark of what is not saved
    copy.Assign(manager);
    CInifile ini;
    ini.SelectSection(u"Analysis");
    copy.Save(ini);
    return ini;
}

CInifile SaveLoaded(CInifile store, const CStr& section)
{
    CManager manager;
    store.SelectSection(section);
    manager.Load(store);
    return Save(manager);
}

bool HasKeys(CInifile& store, const CStr& section)
{
    const CSectionScope scope(store, section);
    return !store.GetKeys().empty();
}

// Loads the preferences of an analysis unless the store has none: a load takes away at least the parameters
// that users have added.
// @return whether it has
bool LoadStored(CManager& manager, EAnalysis analysis, CInifile& store, const CStr& base)
{
    const CStr section = base + u"_" + CAnalysisPreferencesData::GetININame(analysis);
    const bool isStored = HasKeys(store, section) || HasKeys(store, section + u"_DynamicParameters");
    const CSectionScope scope(store, section);
    const auto before = manager.GetData(analysis).Clone();
    manager.LoadData(analysis, store);
    // What has been read from the earlier layout, which has other sections, is not saved yet.
    if (isStored || manager.GetData(analysis).IsModified())
        return true;
    manager.SetData(analysis, *before);
    return false;
}

} // namespace

std::vector<SSettingsDifference> CompareAnalysisPreferences(const CInifile& left, const CInifile& right,
                                                            const CStr& section)
{
    return CompareSettings(SaveLoaded(left, section), SaveLoaded(right, section));
}

CAnalysisPreferencesImport::CAnalysisPreferencesImport(CManager& manager, const CStr& section)
    : m_manager(manager)
    , m_section(section)
{
}

CAnalysisPreferencesImport::~CAnalysisPreferencesImport() = default;

bool CAnalysisPreferencesImport::Prepare(const CStr& path, CStr& reason)
{
    m_next.reset();
    m_keys.clear();
    std::string bytes;
    CStr why;
    if (!ReadFileBytes(path, bytes, c_maximumFileSize, why)) {
        reason = CStr::Format(GetString(c_cannotReadText), path, why);
        return false;
    }
    CInifile store;
    store.LoadBytes(bytes);
    auto next = std::make_unique<CManager>();
    next->Assign(m_manager);
    bool isAnyStored = false;
    for (int i = 0; i <= static_cast<int>(EAnalysis::Measure); ++i)
        isAnyStored |= LoadStored(*next, EAnalysis{i}, store, m_section);
    if (!isAnyStored) {
        reason = CStr::Format(GetString(c_noPreferencesText), path);
        return false;
    }
    const CInifile before = Save(m_manager);
    m_keys = CompareSettings(before, Save(*next));
    m_before = before.GetBytes();
    m_next = std::move(next);
    return true;
}

bool CAnalysisPreferencesImport::Apply(CStr& reason)
{
    if (!m_next || Save(m_manager).GetBytes() != m_before) {
        reason = GetString(c_changedMeanwhileText);
        return false;
    }
    m_manager.Assign(*m_next);
    return true;
}

} // namespace CommonUI
