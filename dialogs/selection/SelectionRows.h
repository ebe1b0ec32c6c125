#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../../model/Parameter.h"
#include "../../model/selection/AnalysisSelection.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// A row of a selection dialog: an entry of a list, or the heading of a group.
struct SSelectionRow {
    CStr name{};                       ///< as shown
    int parent = -1;                   ///< the number of the group that it is in; -1 for one at the top
    std::vector<int> rows{};           ///< the numbers of those in it
    std::optional<CParameter> entry{}; ///< none for a group
    bool shown = true;                 ///< whether the search has found it, or something in it
    CStr text{};                       ///< what is searched, in small letters

    /// Whether the row is a heading; otherwise it has an entry.
    bool IsGroup() const noexcept { return !entry; }
};

/// What the check box of a row shows.
enum class ESelectionCheck {
    None, ///< there is no check box: nothing in the row can be switched on
    Off,
    On,
    Partly ///< of a group: some of what is shown in it are on
};

/// The rows of a list in the groups of the preferences, with a search. Rows have numbers from 0, groups
/// before what is in them. The plug-ins' entry of the roughness catalogue, which is only there to be the
/// parent of others, is left out.
class COMMONUI_API CSelectionRows
{
public:
    /// Replaces the rows by others; the search goes on.
    void Fill(const std::vector<SParameterGroup>& groups);
    /// Takes over an entry of the same number that has changed.
    void Refresh(const CParameter& entry);

    /// How many rows there are with groups, and with those that the search has not found.
    std::size_t GetCount() const noexcept { return m_rows.size(); }
    /// @param row below GetCount
    const SSelectionRow& Get(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }
    /// The row of the entry of that number; -1 if there is none.
    int FindEntry(int id) const;
    /// What is shown of a group's rows, or of those at the top, in their order. @param group -1 for the top
    std::vector<int> GetShown(int group) const;

    /// Of a group, of those in it that are shown.
    ESelectionCheck GetCheck(int row) const;
    /// The numbers of the entries that the check box of a row switches: what is shown of a group.
    std::vector<int> GetSwitched(int row) const;
    /// The numbers of all entries.
    std::vector<int> GetEntries() const;
    /// How many entries are switched on, found by the search or not.
    std::size_t CountOn() const;
    /// How many entries the search has found; groups do not count.
    std::size_t CountShown() const;

    /// Shows what has all words of a text, of an entry or of the groups that it is in: symbol, name, key,
    /// standard. A word is found where a word begins, in large and small letters alike, and in words of
    /// letters and digits where these begin: u"4287 ra" finds "Ra" of "ISO4287". An empty text shows
    /// everything.
    void Search(std::u16string_view text);
    /// What was searched for last; empty at first. Fill keeps it.
    const CStr& GetSearch() const noexcept { return m_search; }

private:
    void Add(const SParameterGroup& group, int parent, const CStr& above);
    void AddEntry(const CParameter& entry, int parent, const CStr& above);
    int Append(SSelectionRow row);
    template<class FVisit>
    void ForEachEntry(int row, FVisit visit) const;

    std::vector<SSelectionRow> m_rows;
    CStr m_search;
};

} // namespace CommonUI
