#pragma once

#include "../common/Str.h"
#include "../export/Export.h"

namespace CommonUI
{

/// What the window of every dialog on the screen, or what stands for it, can do. The controls are named by
/// their numbers in the dialog. Used on the user-interface thread.
class COMMONUI_API CDialogView
{
public:
    CDialogView() = default;
    virtual ~CDialogView();
    CDialogView(const CDialogView&) = delete;
    CDialogView& operator=(const CDialogView&) = delete;

    /// Shows or hides the window, which is hidden at first.
    virtual void Show(bool visible) = 0;
    /// While true, the other windows of the program take no input, whether the dialog is visible or not.
    virtual void SetModal(bool modal) = 0;
    /// While true, the pointer shows that the other windows take no input, as nothing else does: the dialog
    /// is modal and hidden.
    virtual void SetBusy(bool busy) = 0;
    /// Sets the text in the title bar.
    virtual void SetCaption(const CStr& caption) = 0;
    /// Sets the text of a button or a text, or the label of another control.
    virtual void SetText(int control, const CStr& text) = 0;
    /// Whether the user can use a control; all can be used at first.
    virtual void Enable(int control, bool enable) = 0;
};

} // namespace CommonUI
