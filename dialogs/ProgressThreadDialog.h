#pragma once

#include "ProgressDialog.h"

#include <memory>
#include <thread>

namespace CommonUI
{

/// A progress dialog that runs its work on a thread of its own, while the user interface stays alive.
///
/// The work reports by PostThreadProgress and must end soon after that has returned nonzero. Reports that the
/// dialog has not shown yet cross over as one message: the latest text, and all increments together.
class COMMONUI_API CProgressThreadDialog : public CProgressDialog
{
public:
    explicit CProgressThreadDialog(const CStr& caption, const CStr& text = {});
    /// Cancels work that is running, and waits for its end.
    ~CProgressThreadDialog() override;

    /// Sets the member function that does the work, on the worker thread. The object is not owned and must
    /// live until the dialog has closed.
    template<class C>
    void SetWork(std::type_identity_t<C>& object, void (C::*method)())
    {
        m_work.Set(MakeClosure(object, method));
    }

    /// Opens the dialog, runs the work and handles messages until it has ended; an exception of the work then
    /// reaches the caller. @return 1, or 0 when a message has destroyed the dialog
    int DoModal();
    /// Opens the dialog and starts the work, without waiting for it. @return false if there is no work, or if
    /// it is running
    bool RunThread();
    bool IsWorking() const noexcept { return m_thread.joinable(); }
    /// As CProgressDialog::Step, for parts of a step.
    void Step(float increment) { AddProgress(increment); }

    /// Reports progress from the worker thread; it never waits for the user interface. An empty text leaves
    /// the text of the dialog as it is; an increment of not-a-number or infinity is not counted.
    /// @return nonzero, with nothing reported, if the user has cancelled since the last call
    int PostThreadProgress(float increment, const CStr& text);

private:
    struct SShared;

    static void Work(const std::shared_ptr<SShared>& shared, CClosureBase0<void>& work);
    static void Show(SShared& shared);
    void End();

    CCallbackSlot m_work;
    std::shared_ptr<SShared> m_shared; ///< lives as long as messages of the worker are on their way
    std::thread m_thread;
};

} // namespace CommonUI
