#include "dialogs/settings/SettingsChooser.h"

#include "common/StringTable.h"
#include "dialogs/settings/detail/SettingsMenuTexts.h"
#include "settings/factory/SmallLetter.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace CommonUI
{

namespace
{

using EEvent = CCustomSettingsScan::EEvent;

std::u16string MakeSmall(std::u16string_view text)
{
    std::u16string small(text);
    std::ranges::transform(small, small.begin(), ToSmall);
    return small;
}

CStr Join(const CStr& place, const CStr& name)
{
    return place.IsEmpty() ? name : place + u" / " + name;
}

} // namespace

CSettingsChooser::CSettingsChooser(CSettingsMenu& menu)
    : m_menu(menu)
{
    menu.GetScan().GetEvents().Subscribe(*this, &CSettingsChooser::OnScan, m_scanConnection);
    menu.GetScan().Start();
    Fill();
}

void CSettingsChooser::Fill()
{
    m_rows.clear();
    m_shown.clear();
    m_customCount = 0;
    AddBuiltIn(GetSettingsFactory().GetTree(m_menu.GetType(), ESettingCategory::QuickLaunch), {});
    for (const SFoundFolder& folder : m_menu.GetScan().GetFolders())
        AddFolder(folder);
}

void CSettingsChooser::AddBuiltIn(const std::vector<CSettingsFactory::CTree>& trees, const CStr& place)
{
    for (const auto& tree : trees) {
        const auto& [text, id] = tree.GetValue();
        AddBuiltIn(tree.GetChildren(), Join(place, text));
        if (!tree.IsLeaf())
            continue;
        SSearchedRow row{{GetSettingsFactory().GetEntry(id), place}, MakeSmall(text + u"\n" + place)};
        if (IsShown(row))
            m_shown.push_back(m_rows.size());
        m_rows.push_back(std::move(row));
    }
}

CSettingsChooser::SChange CSettingsChooser::AddFolder(const SFoundFolder& folder)
{
    CStr place = GetSettingCategoryEnum().GetFriendlyString(static_cast<int>(ESettingCategory::Custom));
    for (const CStr& name : folder.names)
        place = Join(place, name);
    const std::u16string words = MakeSmall(place);
    std::vector<SSearchedRow> rows;
    rows.reserve(folder.files.size());
    for (const CStr& file : folder.files) {
        SSearchedRow row{{{file, m_menu.GetType()}, place}, {}};
        row.words = MakeSmall(row.row.entry.m_Name) + u'\n' + words;
        rows.push_back(std::move(row));
    }
    return Insert(std::move(rows));
}

// Puts rows behind those of the user's own sets.
CSettingsChooser::SChange CSettingsChooser::Insert(std::vector<SSearchedRow> rows)
{
    const std::size_t added = rows.size();
    const auto behind = std::ranges::lower_bound(m_shown, m_customCount);
    std::for_each(behind, m_shown.end(), [added](std::size_t& index) { index += added; });
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < added; ++i)
        if (IsShown(rows[i]))
            shown.push_back(m_customCount + i);
    const SChange change{.first = static_cast<std::size_t>(behind - m_shown.begin()), .count = shown.size()};
    m_shown.insert(behind, shown.begin(), shown.end());
    m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(m_customCount),
                  std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    m_customCount += added;
    return change;
}

bool CSettingsChooser::IsShown(const SSearchedRow& row) const
{
    return std::ranges::all_of(
        m_words, [&](const std::u16string& word) { return row.words.find(word) != row.words.npos; });
}

void CSettingsChooser::SetFilter(const CStr& text)
{
    m_words.clear();
    for (const CStr& word : CStr(MakeSmall(text)).Split(u" "))
        if (!word.IsEmpty())
            m_words.emplace_back(word.View());
    m_shown.clear();
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (IsShown(m_rows[i]))
            m_shown.push_back(i);
    m_changed.Invoke({.isReset = true});
    m_stateChanged.Invoke();
}

void CSettingsChooser::OnScan(EEvent event)
{
    if (event == EEvent::FolderFound) {
        if (const SChange change = AddFolder(m_menu.GetScan().GetFolders().back()); change.count > 0)
            m_changed.Invoke(change);
    } else if (event == EEvent::Replaced) {
        Fill();
        m_changed.Invoke({.isReset = true});
    }
    m_stateChanged.Invoke();
}

std::size_t CSettingsChooser::FindCurrent() const
{
    if (m_menu.GetCurrent().m_Name.IsEmpty())
        return m_shown.size();
    const auto found = std::ranges::find_if(
        m_shown, [&](std::size_t index) { return IsSameSet(m_rows[index].row.entry, m_menu.GetCurrent()); });
    return static_cast<std::size_t>(found - m_shown.begin());
}

CStr CSettingsChooser::Describe() const
{
    const bool isAll = !m_menu.GetScan().IsRunning();
    return CStr::Format(GetString(isAll ? c_countText : c_countSoFarText), m_shown.size(), m_rows.size());
}

} // namespace CommonUI
