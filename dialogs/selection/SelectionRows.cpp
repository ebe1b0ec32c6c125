#include "dialogs/selection/SelectionRows.h"

#include "controls/lists/SearchWords.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>
#include <iterator>
#include <ranges>

namespace CommonUI
{

namespace
{

enum class ELetter { Letter, Digit, Other };

ELetter KindOf(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return ELetter::Digit;
    const bool isLetter = (unit >= u'a' && unit <= u'z') || unit > 0xBF;
    return isLetter ? ELetter::Letter : ELetter::Other;
}

bool BeginsWord(std::u16string_view text, std::size_t place)
{
    if (place == 0)
        return true;
    const ELetter kind = KindOf(text[place]);
    return kind == ELetter::Other || kind != KindOf(text[place - 1]);
}

bool HasWord(std::u16string_view text, std::u16string_view word)
{
    for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1))
        if (BeginsWord(text, at))
            return true;
    return false;
}

// The plug-ins' entry stands for nothing that could be computed.
bool IsShownEver(const CParameter& entry)
{
    const bool isPlugIns = entry == static_cast<int>(ERoughnessParameters::PlugIn) &&
                           entry.GetStandard() == static_cast<int>(EAnalysisStandards::RoughnessPlugIns);
    return entry.HasParent() || !isPlugIns;
}

} // namespace

int CSelectionRows::Append(SSelectionRow row)
{
    const int number = static_cast<int>(m_rows.size());
    if (row.parent >= 0)
        m_rows[static_cast<std::size_t>(row.parent)].rows.push_back(number);
    m_rows.push_back(std::move(row));
    return number;
}

void CSelectionRows::AddEntry(const CParameter& entry, int parent, const CStr& above)
{
    if (!IsShownEver(entry))
        return;
    const CStr text = entry.GetFriendlyString() + u" " + entry.GetShortFriendlyString() + u" " +
                      entry.GetIniName() + u" " + above;
    Append({.name = entry.GetFriendlyString(), .parent = parent, .entry = entry, .text = ToSmall(text)});
}

void CSelectionRows::Add(const SParameterGroup& group, int parent, const CStr& above)
{
    const int row = Append({.name = group.name, .parent = parent});
    // People write "ISO4287" as well.
    const CStr path = above + u" " + group.name + u" " + group.name.Replace(u" ", u"");
    for (const CParameter& entry : group.parameters)
        AddEntry(entry, row, path);
    for (const SParameterGroup& below : group.subGroups)
        Add(below, row, path);
}

void CSelectionRows::Fill(const std::vector<SParameterGroup>& groups)
{
    m_rows.clear();
    for (const SParameterGroup& group : groups)
        Add(group, -1, {});
    Search(m_search);
}

void CSelectionRows::Refresh(const CParameter& entry)
{
    const int row = FindEntry(entry.GetValue());
    if (row < 0)
        return;
    m_rows[static_cast<std::size_t>(row)].entry = entry;
    m_rows[static_cast<std::size_t>(row)].name = entry.GetFriendlyString();
}

int CSelectionRows::FindEntry(int id) const
{
    const auto found = std::ranges::find_if(
        m_rows, [id](const SSelectionRow& row) { return row.entry && row.entry->GetValue() == id; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

std::vector<int> CSelectionRows::GetShown(int group) const
{
    std::vector<int> shown;
    if (group >= 0) {
        std::ranges::copy_if(Get(group).rows, std::back_inserter(shown),
                             [this](int row) { return Get(row).shown; });
        return shown;
    }
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (m_rows[row].parent < 0 && m_rows[row].shown)
            shown.push_back(static_cast<int>(row));
    return shown;
}

// Calls `visit` with each entry that can be switched, of those that are shown in a group.
template<class FVisit>
void CSelectionRows::ForEachEntry(int row, FVisit visit) const
{
    const SSelectionRow& here = Get(row);
    if (here.entry && !here.entry->IsTemplate())
        visit(*here.entry);
    for (const int below : here.rows)
        if (Get(below).shown)
            ForEachEntry(below, visit);
}

ESelectionCheck CSelectionRows::GetCheck(int row) const
{
    std::size_t count = 0;
    std::size_t on = 0;
    ForEachEntry(row, [&](const CParameter& entry) {
        ++count;
        on += entry.IsOn() ? 1U : 0U;
    });
    if (count == 0)
        return ESelectionCheck::None;
    if (on == 0)
        return ESelectionCheck::Off;
    return on == count ? ESelectionCheck::On : ESelectionCheck::Partly;
}

std::vector<int> CSelectionRows::GetSwitched(int row) const
{
    std::vector<int> ids;
    ForEachEntry(row, [&](const CParameter& entry) { ids.push_back(entry.GetValue()); });
    return ids;
}

std::vector<int> CSelectionRows::GetEntries() const
{
    std::vector<int> ids;
    for (const SSelectionRow& row : m_rows)
        if (row.entry)
            ids.push_back(row.entry->GetValue());
    return ids;
}

std::size_t CSelectionRows::CountOn() const
{
    return static_cast<std::size_t>(std::ranges::count_if(
        m_rows, [](const SSelectionRow& row) { return row.entry && row.entry->IsOn(); }));
}

std::size_t CSelectionRows::CountShown() const
{
    return static_cast<std::size_t>(
        std::ranges::count_if(m_rows, [](const SSelectionRow& row) { return row.entry && row.shown; }));
}

void CSelectionRows::Search(std::u16string_view text)
{
    m_search = text; // which may be what it was
    const CSearchWords words(m_search);
    for (SSelectionRow& row : m_rows)
        row.shown = row.entry && words.AreIn(row.text, HasWord);
    // Groups stand before what is in them.
    for (const SSelectionRow& row : std::views::reverse(m_rows))
        if (row.shown && row.parent >= 0)
            m_rows[static_cast<std::size_t>(row.parent)].shown = true;
}

} // namespace CommonUI
