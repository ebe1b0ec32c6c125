#pragma once

#include "../MemoryDialogView.h"
#include "OptionsDlg.h"

namespace CommonUI
{

/// The window of a dialog of options, without a display.
class COMMONUI_API CMemoryOptionsView : public CMemoryDialogView<COptionsView>
{
public:
    ~CMemoryOptionsView() override;

    void ShowOptions(const std::vector<SDialogOption>& options) override { m_options = options; }
    void FocusOption(int id) override { m_focused = id; }

    /// The form as it is shown; empty before the dialog is opened.
    const std::vector<SDialogOption>& GetOptions() const noexcept { return m_options; }
    /// Where the dialog has led the user last; -1 for nowhere.
    int GetFocused() const noexcept { return m_focused; }
    /// Chooses an item, or ticks a check box, as the user does. @return false if that cannot be done
    bool Choose(int id, int value);
    /// Types in a field in place of what it holds. @return false if that cannot be done
    bool Type(int id, const CStr& text);
    /// Presses OK or Cancel. @return false, and nothing happens, if that cannot be pressed
    bool Press(int button);

private:
    bool CanUse(int id) const;

    std::vector<SDialogOption> m_options;
    int m_focused = -1;
};

} // namespace CommonUI
