#pragma once

#include "../BaseDialog.h"
#include "ListFilter.h"
#include "SelectionListView.h"

#include <optional>
#include <vector>

namespace CommonUI
{

/// A dialog in which the user chooses one entry of a list, or several, and finds them by typing words of
/// them. What is chosen stays chosen while the filter does not show it, except that a dialog for one entry
/// never takes one that its user does not see.
class COMMONUI_API CSelectionListDlg : public CBaseDialog, public CViewedControl<CSelectionListView>
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 7820; ///< the number of the dialog and of its help topic
    COMMONUI_CONSTANT int c_filter = 8201;              ///< the field for the filter
    COMMONUI_CONSTANT int c_list = 8202;                ///< the list; its label is the prompt
    COMMONUI_CONSTANT int c_count = 8203;               ///< the text that tells how many are shown and chosen
    COMMONUI_CONSTANT int c_all = 8204;                 ///< the button that chooses all entries shown
    COMMONUI_CONSTANT int c_none = 8205;                ///< the button that chooses none of those shown

    /// How many entries can be chosen: one, or any number of them.
    enum class EMode { Single, Several };

    /// @param prompt the label of the list; may have a mnemonic
    CSelectionListDlg(EMode mode, const CStr& caption, const CStr& prompt, std::vector<CStr> entries);
    ~CSelectionListDlg() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CSelectionListView* view);

    /// How many entries can be chosen; fixed for the dialog's life.
    EMode GetMode() const noexcept { return m_mode; }
    /// All entries, also those that the filter does not show.
    const std::vector<CStr>& GetEntries() const noexcept { return m_entries; }
    /// Chooses entries by their numbers; those that are none are left out, and of several where one can be
    /// chosen all but the first. To be called before the dialog is opened.
    void SetChosen(const std::vector<std::size_t>& entries);
    /// The numbers of the entries chosen, in the order of the list. If the dialog was closed in another way
    /// than by OK, they are those of its opening.
    std::vector<std::size_t> GetChosen() const;

    /// The entries shown, by their numbers.
    const std::vector<std::size_t>& GetRows() const noexcept { return m_filter.GetFound(); }
    /// Whether an entry is chosen, by its number, not its row; false for a number that is none.
    bool IsChosen(std::size_t entry) const { return entry < m_chosen.size() && m_chosen[entry]; }

    /// The user has typed in the field for the filter.
    void OnFilterChanged(const CStr& text);
    /// The user has made a row the current one, or left none.
    void OnRowSelected(std::optional<std::size_t> row);
    /// The user has checked a row, or no more.
    void OnRowChecked(std::size_t row, bool checked);
    /// The user has pressed the button for all rows, or for none.
    void OnCheckRows(bool checked);
    /// The user has double-clicked a row or pressed Enter on it: where one is chosen, as OK.
    void OnRowActivated();
    /// Does nothing in a dialog for one entry while none is chosen.
    void OnOK() override;

protected:
    bool OnInitDialog() override;
    void OnDestroy() override;
    CDialogView* GetDialogView() const override { return GetView(); }

private:
    bool HasChoice() const;
    void KeepChoiceInSight();
    std::optional<std::size_t> GetChosenRow() const;
    void UpdateView();

    EMode m_mode;
    CStr m_caption;
    CStr m_prompt;
    std::vector<CStr> m_entries;
    std::vector<bool> m_chosen;
    std::vector<bool> m_original; // when the dialog was opened
    std::size_t m_chosenCount = 0;
    CListFilter m_filter;
};

} // namespace CommonUI
