#pragma once

#include "../controls/Timer.h"
#include "../controls/Window.h"
#include "DialogView.h"

#include <map>
#include <memory>

namespace CommonUI
{

/// What dialogs have in common: opening and closing, the modal loop, timers and help. A derived class decides
/// what is shown; a view, lent by the application's toolkit, shows it and forwards events. A dialog without a
/// view does the same unseen.
///
/// Dialogs live on the user-interface thread. A callback may close or destroy the dialog that calls it.
class COMMONUI_API CBaseDialog : public CWnd
{
public:
    COMMONUI_CONSTANT int c_ok = 1;     ///< the OK button, and the result when it was pressed
    COMMONUI_CONSTANT int c_cancel = 2; ///< the Cancel button, and the result when it was pressed

    /// @param identifier the number of the dialog and of its help topic
    /// @param parent the window that the dialog belongs to, or null; kept for the view, never called
    CBaseDialog(unsigned int identifier, CWnd* parent);
    /// A derived class closes the dialog in its own destructor, as nothing of it can be called from here.
    virtual ~CBaseDialog();

    /// The number of the dialog, and of the help topic that OnHelpInfo opens.
    unsigned int GetIdentifier() const noexcept { return m_identifier; }
    /// The window that the dialog belongs to, not owned; null for none.
    CWnd* GetParent() const noexcept { return m_parent; }
    /// Whether the dialog has been opened and not yet closed; one that waits to be shown is open, too.
    bool IsOpen() const noexcept { return m_open; }

    /// Opens the dialog, runs the message loop of the process until the dialog is closed, and returns the
    /// result: c_cancel also where the program ends, or a callback destroys the dialog. An exception that
    /// reaches the loop closes the dialog and goes on to the caller. Throws EInternal if the dialog is open.
    virtual int DoModal();
    /// Opens the dialog and returns. Throws EInternal if it is open.
    void Create();
    /// Closes the dialog; nothing happens when it is not open.
    /// @param result what DoModal returns
    void EndDialog(int result);

    /// Starts a timer of the dialog, anew if it runs; it is killed when the dialog closes.
    /// @param milliseconds the interval of the ticks
    /// @return false if the timer service cannot create one
    bool SetTimer(unsigned int timer, unsigned int milliseconds);
    /// Ends a timer; harmless if it does not run.
    void KillTimer(unsigned int timer);

    /// The user pressed OK, or Enter: closes the dialog.
    virtual void OnOK() { EndDialog(c_ok); }
    /// The user pressed Cancel, or Escape, or closed the window: closes the dialog.
    virtual void OnCancel() { EndDialog(c_cancel); }
    /// The user asked for help: opens the dialog's topic.
    void OnHelpInfo() const;

protected:
    /// The dialog opens: sets up what the view shows. @return whether the view is shown at once
    virtual bool OnInitDialog() = 0;
    /// A timer of SetTimer has ticked; it goes on until it is killed. By default nothing happens.
    virtual void OnTimer(unsigned int timer);
    /// What EndDialog was given.
    int GetResult() const noexcept { return m_result; }
    /// The dialog has been closed.
    virtual void OnDestroy();
    /// The view that shows the dialog, not owned; null for none.
    virtual CDialogView* GetDialogView() const = 0;
    /// Shows or hides the view of an open dialog.
    void ShowWindow(bool visible);

private:
    void Open(bool modal);
    void OnTick(CBaseTimer& timer);

    unsigned int m_identifier;
    CWnd* m_parent;
    bool m_open = false;
    bool m_modal = false;
    int m_result = c_cancel;
    std::map<unsigned int, std::unique_ptr<CWinTimer>> m_timers;
};

} // namespace CommonUI
