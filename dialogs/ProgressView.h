#pragma once

#include "../controls/View.h"
#include "DialogView.h"
#include "ProgressCtrl.h"
#include "ProgressLayout.h"

namespace CommonUI
{

class CProgressDialogBase;

/// The window of a progress dialog: a text, a bar and a Cancel button. It tells its dialog when the user
/// cancels by the button, by Escape or by closing the window, which stays open, and when it is about to
/// paint.
class COMMONUI_API CProgressView : public CDialogView,
                                   public CProgressBarView,
                                   public CControlView<CProgressDialogBase>
{
public:
    ~CProgressView() override;

    /// The size of a text in dialog units, rounded up, when wrapped at a width.
    virtual SSize MeasureText(const CStr& text, int width) const = 0;
    /// Moves the controls to their places and makes the window as large as they need, also while it is open.
    virtual void SetLayout(const SProgressLayout& layout) = 0;
    /// Sets the large icon of the window. @param icon a handle of the toolkit; never null
    virtual void SetIcon(const void* icon) = 0;
    /// Brings the window that the dialog belongs to in front of the other windows.
    virtual void BringParentToTop() = 0;
};

} // namespace CommonUI
