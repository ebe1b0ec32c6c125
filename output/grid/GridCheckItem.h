#pragma once

#include "../../export/Export.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell that is a check box. Its value is a Bool: 0 unchecked, all bits set checked, 2 indeterminate.
class COMMONUI_API CGridCheckItem : public CGridItem
{
public:
    /// @param state 0 unchecked, 2 indeterminate, every other number checked
    CGridCheckItem(int state, unsigned long data);
    ~CGridCheckItem() override;

    /// Whether the check box is hidden in a row that has no rows below it.
    bool IsAutoHide() const noexcept { return m_autoHide; }
    /// An item that hides has its check box only in rows with rows below them.
    void SetAutoHide(bool autoHide);
    /// The state that the value stands for.
    EGridCheck GetCheck() const noexcept;

    /// The check box in a cell: a square in the middle, as high as the cell without its margins.
    static SRect GetCheckRect(const SRect& rect);
    /// Empty: the check box is all there is.
    CStr FormatItem() const override;
    CStr GetSpokenText() const override;
    void OnDrawValue(CGridPainter& painter, const SRect& rect) const override;
    /// A left press on the check box toggles it, unless the grid is read-only.
    bool OnClickValue(unsigned int message, SPoint point, const SRect& rect) override;
    bool OnSpace() override;
    /// There is no editor.
    bool CreateInPlaceEdit(SGridEdit& edit) const override;

private:
    bool IsHidden() const;
    bool Toggle();

    bool m_autoHide = false;
};

} // namespace CommonUI
