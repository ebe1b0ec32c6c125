#include "dialogs/ProgressThreadDialog.h"

#include "common/Diagnostics.h"
#include "common/Exceptions.h"
#include "dialogs/detail/LatestReport.h"
#include "dialogs/detail/ProgressInbox.h"
#include "platform/ThreadMessages.h"

#include <utility>

namespace CommonUI
{

CProgressThreadDialog::CProgressThreadDialog(CWnd* parent, const CStr& caption, const CStr& text)
    : CProgressDialogBase(parent, caption, text)
    , m_inbox(MakeInbox())
{
}

CProgressThreadDialog::~CProgressThreadDialog()
{
    EndDialog(c_cancel);
    DropInbox();
}

int CProgressThreadDialog::DoModal()
{
    const CWatch watch(*this);
    const int result = CProgressDialogBase::DoModal();
    if (!watch.IsGone())
        if (const auto exception = m_inbox->TakeException())
            std::rethrow_exception(exception);
    return result;
}

bool CProgressThreadDialog::OnInitDialog()
{
    const bool show = CProgressDialogBase::OnInitDialog();
    RunThread();
    return show;
}

void CProgressThreadDialog::OnDestroy()
{
    CProgressDialogBase::OnDestroy();
    m_inbox->Close();
    StopWorker();
}

void CProgressThreadDialog::RunThread()
{
    if (m_worker && !m_inbox->IsDone())
        throw EInternal(u"ProgressThreadDialog", __LINE__, u"CProgressThreadDialog::RunThread",
                        u"A worker is running.");
    DropInbox();
    m_inbox = MakeInbox();
    auto run = [work = m_work.Share<void>(), inbox = m_inbox]() -> unsigned long {
        std::exception_ptr exception;
        try {
            if (work)
                work->Invoke();
        } catch (...) {
            exception = std::current_exception();
        }
        inbox->PutEnd(std::move(exception));
        return 1;
    };
    m_worker = std::make_unique<CWorkerThread>(std::move(run), CWorkerThread::c_timeCritical);
    if (IsCanceled())
        PostToThread(m_worker->GetIdentifier(), c_cancelMessage);
    try {
        m_worker->Start();
    } catch (...) {
        m_inbox->PutEnd(std::current_exception());
    }
}

std::shared_ptr<CProgressInbox> CProgressThreadDialog::MakeInbox()
{
    return std::make_shared<CProgressInbox>([this] { EmptyInbox(); });
}

void CProgressThreadDialog::StopWorker()
{
    if (!m_worker)
        return;
    if (!m_inbox->IsDone())
        SetCanceled(true);
    m_worker.reset();
}

void CProgressThreadDialog::DropInbox()
{
    StopWorker();
    m_inbox->Close();
    if (m_inbox->TakeException())
        GetDiagnostics().Write(u"Progress", EDiagnosticLevel::Error,
                               u"The work of a progress dialog threw an exception that nobody waited for.");
}

void CProgressThreadDialog::NotifyCancel()
{
    if (m_worker)
        PostToThread(m_worker->GetIdentifier(), c_cancelMessage);
    CProgressDialogBase::NotifyCancel();
}

int CProgressThreadDialog::PostThreadProgress(float increment, const CStr& text)
{
    SetLatestReport(increment, text);
    if (TakeThreadMessage(c_cancelMessage))
        return 1;
    m_inbox->PutReport(!text.IsEmpty());
    return 0;
}

void CProgressThreadDialog::EmptyInbox()
{
    // A step may close or destroy the dialog, start another worker, or run a loop that takes the rest.
    const auto inbox = m_inbox;
    // Asked first, so that the last text is shown before the dialog closes.
    const bool isDone = inbox->IsDone();
    for (unsigned int made = 0; made < c_stepsPerMessage && inbox->TakeStep(); ++made) {
        if (made == 0)
            ShowProgress();
        Step(GetLatestIncrement());
    }
    if (inbox->TakeText())
        SetText(GetLatestText());
    // Steps that were reported are made before, unless nobody is interested any more.
    if (isDone && !inbox->IsClosed() && (IsCanceled() || !inbox->HasSteps()))
        EndDialog(c_ok);
}

} // namespace CommonUI
