#pragma once

#include "../MemoryDialogView.h"
#include "../MemoryFormatSpecifierView.h"
#include "MemoryOptionsView.h"
#include "SelectionDlg.h"

#include <functional>

namespace CommonUI
{

/// The window of a selection dialog, without a display. The functions of the user answer false, and nothing
/// happens, where a window would offer nothing to do it by.
class COMMONUI_API CMemorySelectionView : public CMemoryDialogView<CSelectionView>
{
public:
    ~CMemorySelectionView() override;

    void MakeTabs() override { ++m_resets; }
    void ResetRows(std::size_t) override { ++m_resets; }
    void UpdateRows(std::size_t) override { ++m_updates; }
    void UpdateOptions(std::size_t) override { ++m_updates; }
    void GoToRow(std::size_t tab, int row) override;
    void GoToOption(std::size_t tab, int option) override;
    int Run(CFormatSpecifierDlg& dialog) override;
    int Run(COptionsDlg& dialog) override;

    /// What the user does with a dialog over the window; the dialog is cancelled when that returns and has
    /// left it open.
    CMemoryFormatSpecifierView::FUse onFormat{};
    /// What the user does with a dialog of options; otherwise as onFormat.
    std::function<void(CMemoryOptionsView&)> onOptions{};

    /// A tab as text: a line for each row that is shown, with two blanks for each group around it, the check
    /// box, what the columns say, and an exclamation mark behind what is marked; then a line for each option.
    CStr Draw() const;
    /// The option that the dialog has led the user to last; -1 for none.
    int GetFocusedOption() const noexcept { return m_option; }
    /// How often the pages, or the rows of one, had to be made anew.
    int GetResetCount() const noexcept { return m_resets; }
    /// How often what rows or options say had to be shown anew.
    int GetUpdateCount() const noexcept { return m_updates; }

    /// Goes to a tab, if the analysis has it.
    bool GoToTab(ESelectionTab tab);
    /// Rows are named by what they show.
    bool Select(const CStr& name);
    /// Ticks the check box of a row, or takes the tick away.
    bool Check(const CStr& name, bool on);
    /// Chooses the unit of a row by its text in the list of those offered.
    bool ChooseUnit(const CStr& name, const CStr& unit);
    /// Types in the search field of the current tab, in place of what it holds.
    bool Search(const CStr& text);
    /// Options are named by their labels, choices by their texts; those of a check box are u"1" and u"0".
    bool Choose(const CStr& option, const CStr& choice);
    /// Types in the field of a number; a text that is none is taken, too, as the user sees what is wrong.
    bool Type(const CStr& option, const CStr& text);
    /// Presses a button by its number.
    bool Press(int button);

private:
    int FindRow(const CStr& name) const;
    const SDialogOption* FindUsable(const CStr& label) const;
    void DrawRow(int row, const CStr& indent, CStr& text) const;

    int m_option = -1;
    int m_resets = 0;
    int m_updates = 0;
};

} // namespace CommonUI
