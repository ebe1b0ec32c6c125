#pragma once

#include "../common/Str.h"
#include "../controls/Closure.h"
#include "../controls/Timer.h"
#include "../controls/View.h"
#include "../controls/Window.h"
#include "CancelQueue.h"
#include "ProgressCtrl.h"

namespace CommonUI
{

class CProgressDialog;

/// Milliseconds from opening until the dialog appears if no progress is reported.
constexpr unsigned int c_ProgressShowDelay = 2000;

/// The progress window on the screen, or what stands for it: a text, a bar and a Cancel button.
class COMMONUI_API CProgressView : public CControlView<CProgressDialog>
{
public:
    ~CProgressView() override;

    virtual void SetCaption(const CStr& caption) = 0;
    virtual void SetText(const CStr& text) = 0;
    virtual void SetProgress(const CProgressCtrl& progress) = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Enables or disables the text, the bar and the Cancel button.
    virtual void Enable(bool enable) = 0;
    /// Brings the window that the dialog belongs to before the others.
    virtual void RaiseParent() = 0;
};

/// A small dialog that shows how far a long operation is and can be asked to cancel it. It belongs to the
/// user-interface thread, on which the work runs, too: the work reports steps, asks between them whether it
/// is cancelled, and lets the messages of the application be handled.
///
/// The dialog appears with the first step or after c_ProgressShowDelay, so that short work flashes no window.
class COMMONUI_API CProgressDialog : public CWnd, public CViewedControl<CProgressView>
{
public:
    /// A dialog that is not open. @param text empty for "Processing, please wait..."
    explicit CProgressDialog(const CStr& caption, const CStr& text = {});
    virtual ~CProgressDialog();

    /// Gives the dialog its window; null takes it away. The view is not owned.
    void SetView(CProgressView* view);
    void SetCaption(const CStr& caption);
    void SetText(const CStr& text);
    const CStr& GetText() const noexcept { return m_text; }
    /// The bar goes from 0 to `maximum`; 100 at first.
    void SetRange(int maximum);
    /// See CProgressCtrl::SetWrap; off at first.
    void SetWrap(bool wrap) noexcept { m_progress.SetWrap(wrap); }
    const CProgressCtrl& GetProgressCtrl() const noexcept { return m_progress; }
    /// Sets the member function that is called after each step with the dialog and its text. The object is
    /// not owned; the function may destroy the dialog.
    template<class C>
    void SetStepCallback(std::type_identity_t<C>& object, void (C::*method)(CProgressDialog&, const CStr&))
    {
        m_slot.Set(MakeClosure(object, method));
    }

    /// Starts the delay after which the dialog appears.
    void Open();
    /// Hides the dialog.
    void Close();
    /// Hides the dialog after a time, in milliseconds.
    void HideAfter(unsigned int milliseconds);
    /// Whether the dialog is open and has not appeared yet.
    bool IsDelayed() const noexcept { return m_showTimer.IsRunning(); }
    /// Adds to the progress and shows the dialog. The dialog may be gone afterwards.
    void Step(int steps) { AddProgress(steps); }

    /// Cancels the work, or takes that back for work that has not noticed. A cancelled dialog is disabled and
    /// stays open until the work has ended.
    void SetCanceled(bool canceled);
    bool IsCanceled() const noexcept { return m_canceled; }
    /// The thread that is told when the user cancels, by its CCancelQueue; it is told at once if that has
    /// happened already. 0 for none.
    void SetNotifyThread(CCancelQueue::TIdentifier identifier);

    /// The user has pressed Cancel.
    void OnCancel() { SetCanceled(true); }
    /// The window is to be painted. @return whether the view shall do so; a dialog that has not appeared yet
    /// raises its parent instead
    bool OnPaint();

protected:
    /// See Step.
    void AddProgress(double increment);

private:
    void OnShowTimer(CBaseTimer& timer);
    void OnHideTimer(CBaseTimer& timer);
    void SetVisible(bool visible);

    CStr m_caption;
    CStr m_text;
    CProgressCtrl m_progress;
    CCallbackSlot m_slot;
    CCancelQueue::TIdentifier m_notifyThread = 0;
    bool m_canceled = false;
    bool m_visible = false;
    CWinTimer m_showTimer{c_ProgressShowDelay};
    CWinTimer m_hideTimer{0};
};

/// A progress window without a display.
class COMMONUI_API CMemoryProgressView : public CProgressView
{
public:
    ~CMemoryProgressView() override;

    void SetCaption(const CStr& given) override { caption = given; }
    void SetText(const CStr& given) override { text = given; }
    void SetProgress(const CProgressCtrl& given) override { progress = given; }
    void SetVisible(bool given) override { visible = given; }
    void Enable(bool enable) override { enabled = enable; }
    void RaiseParent() override { ++raised; }

    CStr caption{};
    CStr text{};
    CProgressCtrl progress{};
    bool visible = false;
    bool enabled = true;
    int raised = 0; ///< how often the parent was raised
};

} // namespace CommonUI
