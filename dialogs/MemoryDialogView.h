#pragma once

#include "../common/Str.h"
#include "BaseDialog.h"

#include <map>

namespace CommonUI
{

/// A window of a dialog without a display: it keeps what a window would show and takes what a user would do.
/// For tests, and for programs that play input back.
/// @tparam TView the window that it stands for
template<class TView>
class CMemoryDialogView : public TView
{
public:
    void Show(bool visible) override { m_visible = visible; }
    void SetModal(bool modal) override { m_modal = modal; }
    void SetBusy(bool busy) override { m_busy = busy; }
    void SetCaption(const CStr& caption) override { m_caption = caption; }
    void SetText(int control, const CStr& text) override { m_texts[control] = text; }
    void Enable(int control, bool enable) override { m_enabled[control] = enable; }

    /// Whether the window is shown; it is not at first.
    bool IsVisible() const noexcept { return m_visible; }
    /// Whether the other windows take no input now.
    bool IsModal() const noexcept { return m_modal; }
    /// Whether the pointer shows that the other windows take no input.
    bool IsBusy() const noexcept { return m_busy; }
    /// The text in the title bar; empty before one is set.
    const CStr& GetCaption() const noexcept { return m_caption; }
    /// Empty where no text was set.
    CStr GetText(int control) const
    {
        const auto found = m_texts.find(control);
        return found == m_texts.end() ? CStr() : found->second;
    }
    /// As all controls are at first.
    bool IsEnabled(int control) const
    {
        const auto found = m_enabled.find(control);
        return found == m_enabled.end() || found->second;
    }

protected:
    /// Whether the user can press a button of that number.
    bool CanPress(int button) const { return m_visible && this->GetControl() && IsEnabled(button); }
    /// Presses CBaseDialog::c_ok or c_cancel. @return whether it is one of them and can be pressed
    bool PressOkOrCancel(int button)
    {
        const bool isOk = button == CBaseDialog::c_ok;
        if (!CanPress(button) || (!isOk && button != CBaseDialog::c_cancel))
            return false;
        if (isOk)
            this->GetControl()->OnOK();
        else
            this->GetControl()->OnCancel();
        return true;
    }

private:
    bool m_visible = false;
    bool m_modal = false;
    bool m_busy = false;
    CStr m_caption;
    std::map<int, CStr> m_texts;
    std::map<int, bool> m_enabled;
};

} // namespace CommonUI
