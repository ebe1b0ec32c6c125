#pragma once

#include "../../controls/lists/SearchWords.h"
#include "SettingsMenu.h"

#include <string>
#include <vector>

namespace CommonUI
{

/// A list of all sets of a type with a search: the user's own, which come in while the list is shown, then
/// the built-in ones. It lives no longer than the menu whose sets it shows.
class COMMONUI_API CSettingsChooser
{
public:
    /// A set of the list.
    struct SRow {
        SSettingsEntry entry{}; ///< what CSettingsMenu::Choose takes
        CStr place{};           ///< the folders or headings that lead to it
    };
    /// A change of what is shown: so many rows come in at an index, or all rows are others. Told before and
    /// after.
    struct SChange {
        bool isDone = false;   ///< false before the change, true after it
        bool isReset = false;  ///< whether all rows are others; then the numbers below mean nothing
        std::size_t first = 0; ///< the index of the first row that comes in
        std::size_t count = 0; ///< how many rows come in, one behind the other
    };

    /// Has the menu look for sets.
    /// @param onlyCustom leaves the built-in ones out
    explicit CSettingsChooser(CSettingsMenu& menu, bool onlyCustom = false);
    CSettingsChooser(const CSettingsChooser&) = delete;
    CSettingsChooser& operator=(const CSettingsChooser&) = delete;

    /// The menu whose sets are listed, and which loads one.
    CSettingsMenu& GetMenu() noexcept { return m_menu; }
    /// Shows the sets whose names or places have each word of a text, without regard to case; all for an
    /// empty one.
    void SetFilter(const CStr& text);
    /// The sets shown.
    std::size_t GetCount() const noexcept { return m_shown.size(); }
    /// A set of those shown. @param index below GetCount
    const SRow& GetRow(std::size_t index) const { return m_rows[m_shown[index]].row; }
    /// The index of a set; the number of those shown if it is not among them.
    std::size_t Find(const SSettingsEntry& entry) const;
    /// How many sets are shown of how many, and whether there may be more.
    CStr Describe() const;

    /// Told before and after each change of the rows that are shown.
    CMultiClosure1<void, const SChange&>& GetChanged() noexcept { return m_changed; }
    /// Told when Describe, or the colours of a set, may be others.
    CMultiClosure0<void>& GetStateChanged() noexcept { return m_stateChanged; }

private:
    struct SSearchedRow {
        SRow row;
        CStr words; // in small letters
    };

    void OnScan(CCustomSettingsScan::EEvent event);
    std::vector<SSearchedRow> MakeRows(const SFoundFolder& folder) const;
    void AddBuiltIn(const std::vector<CSettingsFactory::CTree>& trees, const CStr& place);
    void Fill();
    void Filter();
    bool IsShown(const SSearchedRow& row) const;
    void Insert(std::vector<SSearchedRow> rows);
    template<class FChange>
    void Reset(FChange change);

    CSettingsMenu& m_menu;
    bool m_onlyCustom;
    std::vector<SSearchedRow> m_rows;
    std::size_t m_customCount = 0; // of the rows, which come first
    std::vector<std::size_t> m_shown;
    CSearchWords m_words; // of the filter
    CClosureConnection m_scanConnection;
    CMultiClosure1<void, const SChange&> m_changed;
    CMultiClosure0<void> m_stateChanged;
};

} // namespace CommonUI
