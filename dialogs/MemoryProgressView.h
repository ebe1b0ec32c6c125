#pragma once

#include "MemoryDialogView.h"
#include "ProgressDialogBase.h"

namespace CommonUI
{

/// The window of a progress dialog, without a display. In its font every character is 4 dialog units wide and
/// 8 high, and lines break anywhere.
class COMMONUI_API CMemoryProgressView : public CMemoryDialogView<CProgressView>
{
public:
    ~CMemoryProgressView() override;

    SSize MeasureText(const CStr& text, int width) const override;
    void SetLayout(const SProgressLayout& layout) override { m_layout = layout; }
    void SetIcon(const void* icon) override { m_icon = icon; }
    void BringParentToTop() override { ++m_parentRaises; }
    void SetBarRange(int minimum, int maximum) override;
    void SetBarPosition(int position) override { m_barPosition = position; }

    /// Presses Cancel. @return false, and nothing happens, if the window or the button cannot be pressed
    bool PressCancel();
    /// Has the window painted. @return whether it painted itself
    bool Paint();

    /// Where the controls lie now; as in the template before the dialog is opened.
    const SProgressLayout& GetLayout() const noexcept { return m_layout; }
    /// The handle given to SetIcon; null before.
    const void* GetIcon() const noexcept { return m_icon; }
    /// How often the parent was brought to the top.
    int GetParentRaises() const noexcept { return m_parentRaises; }
    /// The lower end of the bar's range.
    int GetBarMinimum() const noexcept { return m_barMinimum; }
    /// The upper end of the bar's range.
    int GetBarMaximum() const noexcept { return m_barMaximum; }
    /// Where the bar stands within its range.
    int GetBarPosition() const noexcept { return m_barPosition; }

private:
    SProgressLayout m_layout;
    const void* m_icon = nullptr;
    int m_parentRaises = 0;
    int m_barMinimum = 0;
    int m_barMaximum = 0;
    int m_barPosition = 0;
};

} // namespace CommonUI
