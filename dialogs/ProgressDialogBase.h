#pragma once

#include "../controls/Closure.h"
#include "BaseDialog.h"
#include "ProgressView.h"

#include <atomic>

namespace CommonUI
{

/// What both progress dialogs do: a text, a bar and a Cancel button, shown only when the work takes longer
/// than two seconds or reports progress, so that no window flashes for short work. Cancel does not close the
/// dialog; it asks the work to end.
class COMMONUI_API CProgressDialogBase : public CBaseDialog, public CViewedControl<CProgressView>
{
public:
    /// Ticking once, hides the dialog; for a caller that wants it out of the way by SetTimer.
    COMMONUI_CONSTANT unsigned int c_hideTimer = 120;
    /// Ticking once, shows the dialog; it starts when the dialog opens.
    COMMONUI_CONSTANT unsigned int c_showTimer = 121;
    COMMONUI_CONSTANT unsigned int c_showDelay = 2000; ///< in milliseconds
    /// What a thread finds in its queue when the user has cancelled: see TakeThreadMessage.
    COMMONUI_CONSTANT unsigned int c_cancelMessage = 0x40E;

    /// @param parent see CBaseDialog
    /// @param caption if empty, the dialog is called "Progress"
    /// @param text if empty, the text is "Processing, please wait..."
    CProgressDialogBase(CWnd* parent, const CStr& caption, const CStr& text);
    ~CProgressDialogBase() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CProgressView* view);
    /// @param caption see the constructor
    void SetCaption(const CStr& caption);
    /// What was set; empty when the dialog is called "Progress".
    const CStr& GetCaption() const noexcept { return m_caption; }
    /// Lines end with "\n", and long ones are wrapped. The window grows with the text and does not shrink
    /// while it is open.
    void SetText(const CStr& text);
    /// The text that is shown, or will be when the dialog opens.
    const CStr& GetText() const noexcept { return m_text; }
    /// @param icon a handle of the toolkit, not owned; null leaves the icon to it. For the next opening.
    void SetIcon(const void* icon) noexcept { m_icon = icon; }
    /// Sets what the bar counts to, at first 100. A maximum below 0 counts as 0, with a warning.
    void SetRange(int maximum);
    /// Whether a bar past its maximum starts again from 0; otherwise a step that would pass it leaves the bar
    /// where it is. At first it does not wrap.
    void SetWrap(bool wrap) noexcept { m_wrap = wrap; }

    /// As if the user had cancelled, or had not: while cancelled, the controls are disabled. Cancelling tells
    /// the worker and the thread of SetNotifyThread.
    void SetCanceled(bool canceled);
    /// Any thread may ask.
    bool IsCanceled() const noexcept { return m_canceled; }
    /// Sets the thread that finds c_cancelMessage in its queue for each time the dialog is cancelled, and at
    /// once if it is cancelled already.
    /// @param thread see GetThreadIdentifier; 0 for none
    void SetNotifyThread(unsigned long thread);

    /// Sets the member function that is called after each step with the dialog and its text, in place of the
    /// one before. The object is not owned. The function may close or destroy the dialog.
    template<class T>
    void SetStepCallback(std::type_identity_t<T>& object,
                         void (T::*method)(CProgressDialogBase&, const CStr&))
    {
        m_stepCallback.Set(MakeClosure(object, method));
    }
    /// The bar, which belongs to the dialog.
    CProgressCtrl& GetProgressCtrl() noexcept { return m_bar; }

    /// Enter has nothing to press.
    void OnOK() override;
    /// Cancels; the dialog stays open.
    void OnCancel() override { SetCanceled(true); }
    /// The view is about to paint itself.
    /// @return whether it shall; otherwise the parent has been brought to the top instead
    bool OnPaint();

protected:
    bool OnInitDialog() override;
    void OnTimer(unsigned int timer) override;
    void OnDestroy() override;
    CDialogView* GetDialogView() const override { return GetView(); }
    /// Tells whoever does the work.
    virtual void NotifyCancel();
    /// There is progress to see: shows the dialog without further delay, and lets the user cancel.
    void ShowProgress();
    /// Adds to the position, moves the bar to its integer part and calls the callback. An infinity and
    /// not-a-number count as 0, with a warning.
    void Advance(double increment);

private:
    void EnableControls();
    void MoveBar();
    void LayOut();

    CStr m_caption;
    CStr m_text;
    std::atomic<bool> m_canceled = false;
    bool m_wrap = false;
    double m_position = 0; // with the fractions that the bar does not show
    bool m_delayedShow = false;
    int m_textHeight = 0; // the greatest since the dialog was opened, in dialog units
    unsigned long m_notifyThread = 0;
    const void* m_icon = nullptr;
    CProgressCtrl m_bar;
    CCallbackSlot m_stepCallback;
};

} // namespace CommonUI
