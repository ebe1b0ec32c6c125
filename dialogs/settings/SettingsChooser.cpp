#include "dialogs/settings/SettingsChooser.h"

#include "common/SmallLetter.h"
#include "common/StringTable.h"
#include "dialogs/settings/detail/SettingsMenuTexts.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace CommonUI
{

namespace
{

using EEvent = CCustomSettingsScan::EEvent;

CStr Join(const CStr& place, const CStr& name)
{
    return place.IsEmpty() ? name : place + u" / " + name;
}

} // namespace

CSettingsChooser::CSettingsChooser(CSettingsMenu& menu, bool onlyCustom)
    : m_menu(menu)
    , m_onlyCustom(onlyCustom)
{
    menu.GetScan().GetEvents().Subscribe(*this, &CSettingsChooser::OnScan, m_scanConnection);
    menu.GetScan().Start();
    Fill();
}

// All rows, anew.
void CSettingsChooser::Fill()
{
    m_rows.clear();
    for (const SFoundFolder& folder : m_menu.GetScan().GetFolders())
        std::ranges::move(MakeRows(folder), std::back_inserter(m_rows));
    m_customCount = m_rows.size();
    if (!m_onlyCustom)
        AddBuiltIn(GetSettingsFactory().GetTree(m_menu.GetType(), ESettingCategory::QuickLaunch), {});
    Filter();
}

void CSettingsChooser::Filter()
{
    m_shown.clear();
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (IsShown(m_rows[i]))
            m_shown.push_back(i);
}

void CSettingsChooser::AddBuiltIn(const std::vector<CSettingsFactory::CTree>& trees, const CStr& place)
{
    for (const auto& tree : trees) {
        const auto& [text, id] = tree.GetValue();
        AddBuiltIn(tree.GetChildren(), Join(place, text));
        if (!tree.IsLeaf())
            continue;
        m_rows.push_back({{GetSettingsFactory().GetEntry(id), place}, ToSmall(text + u"\n" + place)});
    }
}

std::vector<CSettingsChooser::SSearchedRow> CSettingsChooser::MakeRows(const SFoundFolder& folder) const
{
    CStr place = GetSettingCategoryEnum().GetFriendlyString(static_cast<int>(ESettingCategory::Custom));
    for (const CStr& name : folder.names)
        place = Join(place, name);
    const CStr words = ToSmall(place);
    std::vector<SSearchedRow> rows;
    rows.reserve(folder.files.size());
    for (const CStr& file : folder.files) {
        SSearchedRow& row = rows.emplace_back(SSearchedRow{{{file, m_menu.GetType()}, place}, {}});
        row.words = ToSmall(row.row.entry.m_Name + u"\n") + words;
    }
    return rows;
}

// Puts rows behind those of the user's own sets.
void CSettingsChooser::Insert(std::vector<SSearchedRow> rows)
{
    const auto isBefore = std::ranges::lower_bound(m_shown, m_customCount) - m_shown.begin();
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (IsShown(rows[i]))
            shown.push_back(m_customCount + i);
    SChange change{.first = static_cast<std::size_t>(isBefore), .count = shown.size()};
    if (change.count > 0)
        m_changed.Invoke(change);
    const auto behind = m_shown.begin() + isBefore;
    std::for_each(behind, m_shown.end(), [&](std::size_t& index) { index += rows.size(); });
    m_shown.insert(behind, shown.begin(), shown.end());
    const auto place = m_rows.begin() + static_cast<std::ptrdiff_t>(m_customCount);
    m_customCount += rows.size();
    m_rows.insert(place, std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    change.isDone = true;
    if (change.count > 0)
        m_changed.Invoke(change);
}

template<class FChange>
void CSettingsChooser::Reset(FChange change)
{
    m_changed.Invoke({.isReset = true});
    change();
    m_changed.Invoke({.isDone = true, .isReset = true});
}

bool CSettingsChooser::IsShown(const SSearchedRow& row) const
{
    return m_words.AreIn(row.words);
}

void CSettingsChooser::SetFilter(const CStr& text)
{
    m_words = CSearchWords(text);
    Reset([this] { Filter(); });
    m_stateChanged.Invoke();
}

void CSettingsChooser::OnScan(EEvent event)
{
    if (event == EEvent::FolderFound)
        Insert(MakeRows(m_menu.GetScan().GetFolders().back()));
    else if (event == EEvent::Replaced)
        Reset([this] { Fill(); });
    m_stateChanged.Invoke();
}

std::size_t CSettingsChooser::Find(const SSettingsEntry& entry) const
{
    const auto found = std::ranges::find_if(
        m_shown, [&](std::size_t index) { return IsSameSet(m_rows[index].row.entry, entry); });
    return static_cast<std::size_t>(found - m_shown.begin());
}

CStr CSettingsChooser::Describe() const
{
    const bool isAll = !m_menu.GetScan().IsRunning();
    return CStr::Format(GetString(isAll ? c_countText : c_countSoFarText), m_shown.size(), m_rows.size());
}

} // namespace CommonUI
