#pragma once

#include "../../export/Export.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell with a check box and a button that opens a set-up, such as that of a parameter that has to be given
/// numbers before it is on.
class COMMONUI_API CGridSetupItem : public CGridItem
{
public:
    /// An unchecked item. Without a check box it is a text with a button.
    explicit CGridSetupItem(bool showCheckbox);
    ~CGridSetupItem() override;

    /// Shows the check box or hides it, from keys, too. The state stays as it is.
    void ShowCheckbox(bool show);
    /// 0 unchecked, 1 checked, 2 indeterminate.
    int GetState() const noexcept { return m_state; }
    /// @param state every other number but 0 and 2 counts as 1
    void SetState(int state, bool redraw);
    /// False for an indeterminate item, too.
    bool IsChecked() const noexcept { return m_state == 1; }
    /// Whether the state is 2: neither checked nor unchecked.
    bool IsIndeterminate() const noexcept { return m_state == 2; }
    /// SetState with 1 or 0.
    void SetChecked(bool checked, bool redraw) { SetState(checked ? 1 : 0, redraw); }
    /// SetState with 2, a state that the user cannot bring about.
    void SetIndeterminate(bool redraw) { SetState(2, redraw); }

    /// Sets the member function that the button calls. The object is not owned; the function may remove the
    /// item and destroy the grid.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(CGridSetupItem&))
    {
        m_slot.Set(MakeClosure(object, method));
    }

    /// The check box in a cell: a square at the left, as high as the cell without its margins.
    static SRect GetCheckRect(const SRect& rect);
    CStr GetSpokenText() const override;
    void OnDrawValue(CGridPainter& painter, const SRect& rect) const override;
    /// A left or right press on the check box toggles it, unless the grid is read-only: checked and
    /// indeterminate become unchecked.
    bool OnClickValue(unsigned int message, SPoint point, const SRect& rect) override;
    void OnClickButton() override;
    bool OnSpace() override;
    bool OnEnter() override;
    /// There is no editor.
    bool CreateInPlaceEdit(SGridEdit& edit) const override;
    SRect GetTextRect(const SRect& rect) const override;

private:
    bool Toggle();

    bool m_showCheckbox;
    int m_state = 0;
    CCallbackSlot m_slot;
};

} // namespace CommonUI
