#pragma once

#include "../platform/WorkerThread.h"
#include "ProgressDialogBase.h"

#include <memory>

namespace CommonUI
{

class CProgressInbox;

/// A progress dialog whose work runs on a worker thread: set the work, call DoModal, and the dialog closes
/// when the work is done.
///
/// An exception of the work reaches the caller of DoModal after the dialog is closed and the worker has
/// ended; after Create, it becomes a line in the diagnostics. Whenever the dialog is closed or destroyed
/// while the worker runs, the work is told to cancel and waited for.
class COMMONUI_API CProgressThreadDialog : public CProgressDialogBase
{
public:
    /// What a worker tells its dialog, in numbers that toolkits with numbered messages leave to their
    /// windows: a step, a text, its end. Here one message without a number has the dialog look what there is.
    COMMONUI_CONSTANT unsigned int c_stepMessage = 0x40B;
    COMMONUI_CONSTANT unsigned int c_newTextMessage = 0x40C; ///< there is a new text
    COMMONUI_CONSTANT unsigned int c_closeMessage = 0x40D;   ///< the work has ended
    /// How many steps at most are made between two other messages of the loop.
    COMMONUI_CONSTANT unsigned int c_stepsPerMessage = 64;

    /// Sets the dialog up without work; for the parameters see CProgressDialogBase.
    CProgressThreadDialog(CWnd* parent, const CStr& caption, const CStr& text);
    ~CProgressThreadDialog() override;

    /// Sets the member function that is the work, in place of the one before, before the dialog is opened.
    /// It is called on the worker thread. The object is not owned.
    template<class T>
    void SetWork(std::type_identity_t<T>& object, void (T::*method)())
    {
        m_work.Set(MakeClosure(object, method));
    }

    /// @return c_ok when the work is done, whether the user has cancelled it or not: see IsCanceled
    int DoModal() override;
    /// Starts the worker at time-critical priority; opening the dialog does it. The dialog closes when the
    /// work is done. Throws EInternal while a worker runs. If the system has no thread left, the work counts
    /// as done with that exception.
    void RunThread();
    /// Adds to the position: what becomes of a report on the user-interface thread.
    void Step(float increment) { Advance(increment); }

    /// Reports progress; called by the work, on the worker thread. It returns at once, however busy the
    /// user-interface thread is.
    ///
    /// Each report makes one step, but there is one increment and one text in the whole process, that of the
    /// last report: reports that the dialog gets to later than that show the last one's. A report without a
    /// text leaves the text that is shown as it is; one that still waits to be shown becomes empty. However
    /// many reports there are, at most one message for them waits in the loop.
    /// @return not 0 if the user has cancelled: the report makes no step and brings no text, though it is the
    ///     last one, and the work shall end. The next report returns 0 again.
    int PostThreadProgress(float increment, const CStr& text);

protected:
    bool OnInitDialog() override;
    void OnDestroy() override;
    void NotifyCancel() override;

private:
    std::shared_ptr<CProgressInbox> MakeInbox();
    void EmptyInbox();
    void StopWorker();
    void DropInbox();

    CCallbackSlot m_work;
    std::shared_ptr<CProgressInbox> m_inbox; // that of the current or last worker
    std::unique_ptr<CWorkerThread> m_worker;
};

} // namespace CommonUI
